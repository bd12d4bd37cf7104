#include "simulator/server/MessageKind.h"

#include "panorel/Constants.h"
#include "panorel/PanorelMessageHandler.h"

#include <QSet>

namespace simulator {

namespace {

const QSet<QString> &requestTopics()
{
    using namespace panorel::constants;
    static const QSet<QString> topics = {
        ABORT_ROBOT_REPLIC,
        SAY,
        GET_REPLICA,
        PRINT,
        PRINT_STATE,
        DISPENSE,
        LOG,
        STATISTIC,
        INTERACTION_CONTROL,
        GET_ENVIRONMENT,
        SETTINGS_GET,
        SOUND_PROPERTIES,
        SET_LANGUAGE,
        PLAY_EXTERNAL,
        DRIVE_CONTROL,
        SCRIPTS_CONTROL,
        FACE_RECOGNIZE_CONTROL,
        DATABASE_USER_REQUEST,
        SIP_CONTROL,
        SCANNER_PASSPORT_REQUEST,
        SCANNER_DOCUMENT_REQUEST,
        RECORD_AUDIO_REQUEST,
        MAIL_SENDER_REQUEST,
        OPERATOR_CALL_REQUEST,
        KEYBOARD_CONTROL_REQUEST,
        QUESTION_ANSWER,
    };
    return topics;
}

} // namespace

MessageDirection directionOf(const panorel::Message &message)
{
    using namespace panorel::constants;
    const QString topic = message.type();
    const QMap<QString, QVariant> attributes = message.attributes();

    // Face reports of the widget share their topic with the page's touches.
    if (topic == GENERAL_TOUCH)
        return isFaceReport(message) ? MessageDirection::Inside : MessageDirection::PageToRobot;
    if (requestTopics().contains(topic)) {
        // Everything that came over the bridge has an "id" entry; the host's own code may publish
        // requests too.
        return attributes.contains(QStringLiteral("id")) ? MessageDirection::PageToRobot
                                                         : MessageDirection::Inside;
    }
    if (panorel::PanorelMessageHandler::topics().contains(topic))
        return MessageDirection::RobotToPage;
    return attributes.contains(QStringLiteral("id")) ? MessageDirection::PageToRobot
                                                     : MessageDirection::Inside;
}

bool isFaceReport(const panorel::Message &message)
{
    using namespace panorel::constants;
    const QString topic = message.type();
    if (topic != GENERAL_TOUCH)
        return topic == FACE_RECOGNIZE_INFO;
    const QMap<QString, QVariant> attributes = message.attributes();
    return attributes.contains(QStringLiteral("rect"))
        || attributes.contains(QStringLiteral("info"));
}

} // namespace simulator
