#include "panorel/PanorelMessageHandler.h"

#include "panorel/Constants.h"
#include "panorel/MessageQueueBrocker.h"
#include "panorel/PanorelProxy.h"

namespace panorel {

PanorelMessageHandler::PanorelMessageHandler(PanorelProxy *proxy)
    : m_proxy(proxy)
{
    for (const QString &topic : topics())
        m_proxy->brocker()->subscribe(topic, this);
}

void PanorelMessageHandler::handle(Message message) { Q_EMIT m_proxy->message(message.toJson()); }

const QStringList &PanorelMessageHandler::topics()
{
    static const QStringList list{
        constants::PRINT_ERROR,
        constants::PRINT_NO_PAPER,
        constants::PRINT_NO_PRINTER,
        constants::PRINT_LOW_PAPER,
        constants::PRINT_STATE_INFO,
        constants::PRINT_SUCCESS,
        constants::QUESTION_NEW,
        constants::QUESTION_CANCEL,
        constants::USER_ACTION,
        constants::USER_HAS,
        constants::USER_LOST,
        constants::USER_SAID,
        constants::PARAMETERS_RESPONSE,
        constants::CUSTOM_EVENT_CORE,
        constants::ROBOT_REPLIC_FINISH,
        constants::ROBOT_REPLIC_START,
        constants::SETTINGS_UPDATE,
        constants::INTERACTION_STATE,
        constants::LOAD_REPLICA,
        constants::LOAD_ANSWER,
        constants::LOAD_GREETING,
        constants::LOAD_EXTRA_REPLICA,
        constants::APPLICATION_FINISH,
        constants::LOAD_ENVIRONMENT,
        constants::SETTINGS_LOAD,
        constants::DRIVE_MODE,
        constants::DRIVE_STATUS,
        constants::DRIVE_CHARGE,
        constants::SCRIPTS_START_RESULT,
        constants::SCRIPTS_END,
        constants::SOUND_LOAD,
        constants::PLAY_STATUS,
        constants::FACE_RECOGNIZE_GENERAL,
        constants::FACE_RECOGNIZE_INFO,
        constants::FACE_ADD_STATUS,
        constants::GENERAL_SETTED,
        constants::DATABASE_USER_RESPONSE,
        constants::DISPENSER_NOT_CONNECTED,
        constants::DISPENSER_COMMUNICATION_TIMEOUT,
        constants::DISPENSER_CARD_DISPENSING,
        constants::DISPENSER_CARD_PREEMPTY,
        constants::DISPENSER_CARD_EMPTY,
        constants::DISPENSER_CARDBIN_FULL,
        constants::DISPENSER_CARD_ERROR,
        constants::DISPENSER_NO_DISPENSER,
        constants::DISPENSER_SENSOR,
        constants::SIP_TEXT_RESPONSE,
        constants::SIP_FILE_RESPONSE,
        constants::SIP_CALL_RESPONSE,
        constants::SIP_EVENTS,
        constants::SCANNER_PASSPORT_ERROR,
        constants::SCANNER_PASSPORT_STATE,
        constants::SCANNER_PASSPORT_FINISH,
        constants::SCANNER_PASSPORT_RESPONSE,
        constants::SCANNER_DOCUMENT_ERROR,
        constants::SCANNER_DOCUMENT_STATE,
        constants::SCANNER_DOCUMENT_FINISH,
        constants::SCANNER_DOCUMENT_PROGRESS,
        constants::SCANNER_DOCUMENT_RESPONSE,
        constants::RECORD_AUDIO_RESPONSE,
        constants::MAIL_SENDER_RESPONSE,
        constants::OPERATOR_CALL_RESPONSE,
        constants::OPERATOR_CONTROL_STATUS,
        constants::SYSTEM_PAGE_HIDDEN,
        constants::KEYBOARD_CONTROL_RESPONSE,
    };
    return list;
}

} // namespace panorel
