#include "panorel/Constants.h"
#include "tests/support/TestCase.h"

#include <QSet>

using namespace panorel::constants;

namespace {

struct Topic
{
    const char *name;
    const QString &constant;
    const char *text;
};

// The whole vocabulary.
const Topic vocabulary[] = {
    {"ABORT_ROBOT_REPLIC", ABORT_ROBOT_REPLIC, "dialog.robot.replic.abort"},
    {"SAY", SAY, "dialog.say"},
    {"GET_REPLICA", GET_REPLICA, "dialog.replica.get"},
    {"PRINT", PRINT, "printer.print"},
    {"PRINT_STATE", PRINT_STATE, "printer.state"},
    {"DISPENSE", DISPENSE, "dispenser.dispense"},
    {"LOG", LOG, "system.log"},
    {"STATISTIC", STATISTIC, "system.statistic"},
    {"INTERACTION_CONTROL", INTERACTION_CONTROL, "system.interaction.control"},
    {"GET_ENVIRONMENT", GET_ENVIRONMENT, "system.environment.get"},
    {"SETTINGS_GET", SETTINGS_GET, "system.settings.get"},
    {"SOUND_PROPERTIES", SOUND_PROPERTIES, "system.sound.properties"},
    {"SET_LANGUAGE", SET_LANGUAGE, "system.language.set"},
    {"PLAY_EXTERNAL", PLAY_EXTERNAL, "system.play.external"},
    {"DRIVE_CONTROL", DRIVE_CONTROL, "system.drive.control"},
    {"SCRIPTS_CONTROL", SCRIPTS_CONTROL, "system.scripts.control"},
    {"FACE_RECOGNIZE_CONTROL", FACE_RECOGNIZE_CONTROL, "face.recognize.control"},
    {"DATABASE_USER_REQUEST", DATABASE_USER_REQUEST, "database.user.request"},
    {"SIP_CONTROL", SIP_CONTROL, "sip.control"},
    {"SCANNER_PASSPORT_REQUEST", SCANNER_PASSPORT_REQUEST, "scanner.passport.request"},
    {"SCANNER_DOCUMENT_REQUEST", SCANNER_DOCUMENT_REQUEST, "scanner.document.request"},
    {"RECORD_AUDIO_REQUEST", RECORD_AUDIO_REQUEST, "record.audio.request"},
    {"MAIL_SENDER_REQUEST", MAIL_SENDER_REQUEST, "mail.sender.request"},
    {"OPERATOR_CALL_REQUEST", OPERATOR_CALL_REQUEST, "operator.call.request"},
    {"KEYBOARD_CONTROL_REQUEST", KEYBOARD_CONTROL_REQUEST, "keyboard.control.request"},
    {"QUESTION_ANSWER", QUESTION_ANSWER, "dialog.question.answer"},
    {"GENERAL_TOUCH", GENERAL_TOUCH, "system.general.touch"},
    {"USER_HAS", USER_HAS, "user.has.user"},
    {"USER_LOST", USER_LOST, "user.lost.user"},
    {"USER_ACTION", USER_ACTION, "dialog.action"},
    {"USER_SAID", USER_SAID, "dialog.user.said"},
    {"LOAD_ANSWER", LOAD_ANSWER, "dialog.answer.load"},
    {"LOAD_GREETING", LOAD_GREETING, "dialog.greeting.load"},
    {"LOAD_EXTRA_REPLICA", LOAD_EXTRA_REPLICA, "dialog.replica.extra.load"},
    {"ROBOT_REPLIC_START", ROBOT_REPLIC_START, "dialog.robot.replic.start"},
    {"ROBOT_REPLIC_FINISH", ROBOT_REPLIC_FINISH, "dialog.robot.replic.finish"},
    {"SETTINGS_UPDATE", SETTINGS_UPDATE, "system.settings.update"},
    {"DRIVE_MODE", DRIVE_MODE, "system.drive.mode"},
    {"DRIVE_STATUS", DRIVE_STATUS, "system.drive.status"},
    {"DRIVE_CHARGE", DRIVE_CHARGE, "system.drive.charge"},
    {"SCRIPTS_END", SCRIPTS_END, "system.scripts.end"},
    {"FACE_RECOGNIZE_GENERAL", FACE_RECOGNIZE_GENERAL, "face.recognize.general"},
    {"FACE_RECOGNIZE_INFO", FACE_RECOGNIZE_INFO, "face.recognize.info"},
    {"FACE_ADD_STATUS", FACE_ADD_STATUS, "face.add.status"},
    {"OPERATOR_CALL_RESPONSE", OPERATOR_CALL_RESPONSE, "operator.call.response"},
    {"OPERATOR_CONTROL_STATUS", OPERATOR_CONTROL_STATUS, "operator.control.status"},
    {"SYSTEM_PAGE_HIDDEN", SYSTEM_PAGE_HIDDEN, "system.page.hidden"},
    {"CUSTOM_EVENT_CORE", CUSTOM_EVENT_CORE, "system.custom.event.core"},
    {"APPLICATION_FINISH", APPLICATION_FINISH, "system.application.finish"},
    {"LOAD_REPLICA", LOAD_REPLICA, "dialog.replica.load"},
    {"QUESTION_CANCEL", QUESTION_CANCEL, "dialog.question.cancel"},
    {"QUESTION_NEW", QUESTION_NEW, "dialog.question.new"},
    {"PRINT_SUCCESS", PRINT_SUCCESS, "printer.success"},
    {"PRINT_ERROR", PRINT_ERROR, "printer.error"},
    {"PRINT_NO_PAPER", PRINT_NO_PAPER, "printer.nopaper"},
    {"PRINT_LOW_PAPER", PRINT_LOW_PAPER, "printer.paper.low"},
    {"PRINT_NO_PRINTER", PRINT_NO_PRINTER, "printer.noprinter"},
    {"DISPENSER_NOT_CONNECTED", DISPENSER_NOT_CONNECTED, "dispenser.not.connected"},
    {"DISPENSER_COMMUNICATION_TIMEOUT", DISPENSER_COMMUNICATION_TIMEOUT,
     "dispenser.communication.timeout"},
    {"DISPENSER_CARD_DISPENSING", DISPENSER_CARD_DISPENSING, "dispenser.card.dispensing"},
    {"DISPENSER_CARD_PREEMPTY", DISPENSER_CARD_PREEMPTY, "dispenser.card.preempty"},
    {"DISPENSER_CARD_EMPTY", DISPENSER_CARD_EMPTY, "dispenser.card.empty"},
    {"DISPENSER_CARDBIN_FULL", DISPENSER_CARDBIN_FULL, "dispenser.cardbin.full"},
    {"DISPENSER_CARD_ERROR", DISPENSER_CARD_ERROR, "dispenser.card.error"},
    {"DISPENSER_NO_DISPENSER", DISPENSER_NO_DISPENSER, "dispenser.nodispenser"},
    {"DISPENSER_SENSOR", DISPENSER_SENSOR, "dispenser.sensor"},
    {"INTERACTION_STATE", INTERACTION_STATE, "system.interaction.state"},
    {"LOAD_ENVIRONMENT", LOAD_ENVIRONMENT, "system.environment.load"},
    {"SETTINGS_LOAD", SETTINGS_LOAD, "system.settings.load"},
    {"SOUND_LOAD", SOUND_LOAD, "system.sound.load"},
    {"PLAY_STATUS", PLAY_STATUS, "system.play.status"},
    {"SCRIPTS_START_RESULT", SCRIPTS_START_RESULT, "system.scripts.start.result"},
    {"GENERAL_SETTED", GENERAL_SETTED, "system.general.setted"},
    {"DATABASE_USER_RESPONSE", DATABASE_USER_RESPONSE, "database.user.response"},
    {"SIP_TEXT_RESPONSE", SIP_TEXT_RESPONSE, "sip.text.response"},
    {"SIP_FILE_RESPONSE", SIP_FILE_RESPONSE, "sip.file.response"},
    {"SIP_CALL_RESPONSE", SIP_CALL_RESPONSE, "sip.call.response"},
    {"SIP_EVENTS", SIP_EVENTS, "sip.events"},
    {"SCANNER_PASSPORT_ERROR", SCANNER_PASSPORT_ERROR, "scanner.passport.error"},
    {"SCANNER_PASSPORT_STATE", SCANNER_PASSPORT_STATE, "scanner.passport.state"},
    {"SCANNER_PASSPORT_FINISH", SCANNER_PASSPORT_FINISH, "scanner.passport.finish"},
    {"SCANNER_DOCUMENT_ERROR", SCANNER_DOCUMENT_ERROR, "scanner.document.error"},
    {"SCANNER_DOCUMENT_STATE", SCANNER_DOCUMENT_STATE, "scanner.document.state"},
    {"SCANNER_DOCUMENT_FINISH", SCANNER_DOCUMENT_FINISH, "scanner.document.finish"},
    {"SCANNER_DOCUMENT_PROGRESS", SCANNER_DOCUMENT_PROGRESS, "scanner.document.progress"},
    {"SCANNER_PASSPORT_RESPONSE", SCANNER_PASSPORT_RESPONSE, "scanner.passport.response"},
    {"SCANNER_DOCUMENT_RESPONSE", SCANNER_DOCUMENT_RESPONSE, "scanner.document.response"},
    {"RECORD_AUDIO_RESPONSE", RECORD_AUDIO_RESPONSE, "record.audio.response"},
    {"MAIL_SENDER_RESPONSE", MAIL_SENDER_RESPONSE, "mail.sender.response"},
    {"KEYBOARD_CONTROL_RESPONSE", KEYBOARD_CONTROL_RESPONSE, "keyboard.control.response"},
    {"PRINT_STATE_INFO", PRINT_STATE_INFO, "printer.state.info"},
    {"PARAMETERS_RESPONSE", PARAMETERS_RESPONSE, "parameters.response"},
    {"COOKIE_SET", COOKIE_SET, "cookie.set"},
    {"COOKIE_SET_DONE", COOKIE_SET_DONE, "cookie.set.done"},
    {"PARAMETERS_GET", PARAMETERS_GET, "parameters.get"},
    {"CUSTOM_EVENT_JS", CUSTOM_EVENT_JS, "system.custom.event.js"},
};

constexpr int topicCount = 96;

} // namespace

class ConstantsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void hasTheVocabulary_data();
    void hasTheVocabulary();
    void isComplete();
};

void ConstantsTest::hasTheVocabulary_data()
{
    QTest::addColumn<QString>("constant");
    QTest::addColumn<QString>("text");
    for (const Topic &topic : vocabulary)
        QTest::newRow(topic.name) << topic.constant << QString::fromLatin1(topic.text);
}

void ConstantsTest::hasTheVocabulary()
{
    QFETCH(QString, constant);
    QFETCH(QString, text);
    QCOMPARE(constant, text);
}

void ConstantsTest::isComplete()
{
    QSet<QString> texts;
    for (const Topic &topic : vocabulary)
        texts.insert(topic.constant);
    QCOMPARE(texts.size(), topicCount);
}

QTEST_GUILESS_MAIN(ConstantsTest)
#include "tst_constants.moc"
