#pragma once

#include "panorel/Export.h"

#include <QString>

/// The vocabulary of the bus: every topic that page and core agree on. Compared exactly, letter
/// case included.
namespace panorel {
namespace constants {

// Requests of the page, and the handler that acts on each. GENERAL_TOUCH is published by the
// widget too, with the faces seen last.
/// "dialog.robot.replic.abort", AbortRobotReplicHandler
extern PANOREL_EXPORT const QString ABORT_ROBOT_REPLIC;
/// "dialog.say", ReplicEventHandler
extern PANOREL_EXPORT const QString SAY;
/// "dialog.replica.get", GetReplicHandler
extern PANOREL_EXPORT const QString GET_REPLICA;
/// "printer.print", PrintHandler
extern PANOREL_EXPORT const QString PRINT;
/// "printer.state", PrintStateHandler
extern PANOREL_EXPORT const QString PRINT_STATE;
/// "dispenser.dispense", DispenserHandler
extern PANOREL_EXPORT const QString DISPENSE;
/// "system.log", LogEventHandler
extern PANOREL_EXPORT const QString LOG;
/// "system.statistic", StatisticEventHandler
extern PANOREL_EXPORT const QString STATISTIC;
/// "system.interaction.control", InteractionHandler
extern PANOREL_EXPORT const QString INTERACTION_CONTROL;
/// "system.environment.get", GetEnvironmentHandler
extern PANOREL_EXPORT const QString GET_ENVIRONMENT;
/// "system.settings.get", GetSettingHandler
extern PANOREL_EXPORT const QString SETTINGS_GET;
/// "system.sound.properties", SoundEventHandler
extern PANOREL_EXPORT const QString SOUND_PROPERTIES;
/// "system.language.set", LanguageHandler
extern PANOREL_EXPORT const QString SET_LANGUAGE;
/// "system.play.external", PlayExternalHandler
extern PANOREL_EXPORT const QString PLAY_EXTERNAL;
/// "system.drive.control", DriveControlHandler
extern PANOREL_EXPORT const QString DRIVE_CONTROL;
/// "system.scripts.control", ScriptControlHandler
extern PANOREL_EXPORT const QString SCRIPTS_CONTROL;
/// "face.recognize.control", FaceRecognizeControlHandler
extern PANOREL_EXPORT const QString FACE_RECOGNIZE_CONTROL;
/// "database.user.request", UserDatabaseHandler
extern PANOREL_EXPORT const QString DATABASE_USER_REQUEST;
/// "sip.control", SIPControlHandler
extern PANOREL_EXPORT const QString SIP_CONTROL;
/// "scanner.passport.request", PassportScannerHandler
extern PANOREL_EXPORT const QString SCANNER_PASSPORT_REQUEST;
/// "scanner.document.request", DocumentScannerHandler
extern PANOREL_EXPORT const QString SCANNER_DOCUMENT_REQUEST;
/// "record.audio.request", RecordAudioHandler
extern PANOREL_EXPORT const QString RECORD_AUDIO_REQUEST;
/// "mail.sender.request", MailSenderHandler
extern PANOREL_EXPORT const QString MAIL_SENDER_REQUEST;
/// "operator.call.request", OperatorCallHandler
extern PANOREL_EXPORT const QString OPERATOR_CALL_REQUEST;
/// "keyboard.control.request", KeyboardControlHandler
extern PANOREL_EXPORT const QString KEYBOARD_CONTROL_REQUEST;
/// "dialog.question.answer", PanorelQuestionHandler
extern PANOREL_EXPORT const QString QUESTION_ANSWER;
/// "system.general.touch", GeneralTouchHandler
extern PANOREL_EXPORT const QString GENERAL_TOUCH;

// Robot events for the page, and the method that publishes each.
/// "user.has.user", Panorel::hasUser
extern PANOREL_EXPORT const QString USER_HAS;
/// "user.lost.user", Panorel::lostUser
extern PANOREL_EXPORT const QString USER_LOST;
/// "dialog.action", Panorel::userAction
extern PANOREL_EXPORT const QString USER_ACTION;
/// "dialog.user.said", Panorel::userSaid
extern PANOREL_EXPORT const QString USER_SAID;
/// "dialog.answer.load", Panorel::answerResult
extern PANOREL_EXPORT const QString LOAD_ANSWER;
/// "dialog.greeting.load", Panorel::greeting
extern PANOREL_EXPORT const QString LOAD_GREETING;
/// "dialog.replica.extra.load", Panorel::extraReplica
extern PANOREL_EXPORT const QString LOAD_EXTRA_REPLICA;
/// "dialog.robot.replic.start", Panorel::robotReplicStart
extern PANOREL_EXPORT const QString ROBOT_REPLIC_START;
/// "dialog.robot.replic.finish", Panorel::robotReplicFinish
extern PANOREL_EXPORT const QString ROBOT_REPLIC_FINISH;
/// "system.settings.update", Panorel::updateSettings
extern PANOREL_EXPORT const QString SETTINGS_UPDATE;
/// "system.drive.mode", Panorel::driveMode
extern PANOREL_EXPORT const QString DRIVE_MODE;
/// "system.drive.status", Panorel::driveStatus
extern PANOREL_EXPORT const QString DRIVE_STATUS;
/// "system.drive.charge", Panorel::driveChargerStatus
extern PANOREL_EXPORT const QString DRIVE_CHARGE;
/// "system.scripts.end", Panorel::scriptEnd
extern PANOREL_EXPORT const QString SCRIPTS_END;
/// "face.recognize.general", Panorel::faceGeneral
extern PANOREL_EXPORT const QString FACE_RECOGNIZE_GENERAL;
/// "face.recognize.info", Panorel::faceInfo
extern PANOREL_EXPORT const QString FACE_RECOGNIZE_INFO;
/// "face.add.status", Panorel::faceAddStatus
extern PANOREL_EXPORT const QString FACE_ADD_STATUS;
/// "operator.call.response", Panorel::operatorResponse
extern PANOREL_EXPORT const QString OPERATOR_CALL_RESPONSE;
/// "operator.control.status", Panorel::operatorControl
extern PANOREL_EXPORT const QString OPERATOR_CONTROL_STATUS;
/// "system.page.hidden", Panorel::pageHidden
extern PANOREL_EXPORT const QString SYSTEM_PAGE_HIDDEN;
/// "system.custom.event.core", Panorel::customEvent
extern PANOREL_EXPORT const QString CUSTOM_EVENT_CORE;
/// "system.application.finish", Panorel::applicationFinish
extern PANOREL_EXPORT const QString APPLICATION_FINISH;

// Replies and device events for the page, and the handler that publishes each.
/// "dialog.replica.load", GetReplicHandler
extern PANOREL_EXPORT const QString LOAD_REPLICA;
/// "dialog.question.cancel", PanorelQuestionHandler
extern PANOREL_EXPORT const QString QUESTION_CANCEL;
/// "dialog.question.new", PanorelQuestionHandler
extern PANOREL_EXPORT const QString QUESTION_NEW;
/// "printer.success", PrintHandler
extern PANOREL_EXPORT const QString PRINT_SUCCESS;
/// "printer.error", PrintHandler
extern PANOREL_EXPORT const QString PRINT_ERROR;
/// "printer.nopaper", PrintHandler
extern PANOREL_EXPORT const QString PRINT_NO_PAPER;
/// "printer.paper.low", PrintHandler
extern PANOREL_EXPORT const QString PRINT_LOW_PAPER;
/// "printer.noprinter", PrintHandler
extern PANOREL_EXPORT const QString PRINT_NO_PRINTER;
/// "dispenser.not.connected", DispenserHandler
extern PANOREL_EXPORT const QString DISPENSER_NOT_CONNECTED;
/// "dispenser.communication.timeout", DispenserHandler
extern PANOREL_EXPORT const QString DISPENSER_COMMUNICATION_TIMEOUT;
/// "dispenser.card.dispensing", DispenserHandler
extern PANOREL_EXPORT const QString DISPENSER_CARD_DISPENSING;
/// "dispenser.card.preempty", DispenserHandler
extern PANOREL_EXPORT const QString DISPENSER_CARD_PREEMPTY;
/// "dispenser.card.empty", DispenserHandler
extern PANOREL_EXPORT const QString DISPENSER_CARD_EMPTY;
/// "dispenser.cardbin.full", DispenserHandler
extern PANOREL_EXPORT const QString DISPENSER_CARDBIN_FULL;
/// "dispenser.card.error", DispenserHandler
extern PANOREL_EXPORT const QString DISPENSER_CARD_ERROR;
/// "dispenser.nodispenser", DispenserHandler
extern PANOREL_EXPORT const QString DISPENSER_NO_DISPENSER;
/// "dispenser.sensor", DispenserHandler
extern PANOREL_EXPORT const QString DISPENSER_SENSOR;
/// "system.interaction.state", InteractionHandler
extern PANOREL_EXPORT const QString INTERACTION_STATE;
/// "system.environment.load", GetEnvironmentHandler
extern PANOREL_EXPORT const QString LOAD_ENVIRONMENT;
/// "system.settings.load", GetSettingHandler
extern PANOREL_EXPORT const QString SETTINGS_LOAD;
/// "system.sound.load", SoundEventHandler
extern PANOREL_EXPORT const QString SOUND_LOAD;
/// "system.play.status", PlayExternalHandler
extern PANOREL_EXPORT const QString PLAY_STATUS;
/// "system.scripts.start.result", ScriptControlHandler
extern PANOREL_EXPORT const QString SCRIPTS_START_RESULT;
/// "system.general.setted", GeneralTouchHandler
extern PANOREL_EXPORT const QString GENERAL_SETTED;
/// "database.user.response", UserDatabaseHandler
extern PANOREL_EXPORT const QString DATABASE_USER_RESPONSE;
/// "sip.text.response", SIPControlHandler
extern PANOREL_EXPORT const QString SIP_TEXT_RESPONSE;
/// "sip.file.response", SIPControlHandler
extern PANOREL_EXPORT const QString SIP_FILE_RESPONSE;
/// "sip.call.response", SIPControlHandler
extern PANOREL_EXPORT const QString SIP_CALL_RESPONSE;
/// "sip.events", SIPControlHandler
extern PANOREL_EXPORT const QString SIP_EVENTS;
/// "scanner.passport.error", PassportScannerHandler
extern PANOREL_EXPORT const QString SCANNER_PASSPORT_ERROR;
/// "scanner.passport.state", PassportScannerHandler
extern PANOREL_EXPORT const QString SCANNER_PASSPORT_STATE;
/// "scanner.passport.finish", PassportScannerHandler
extern PANOREL_EXPORT const QString SCANNER_PASSPORT_FINISH;
/// "scanner.document.error", DocumentScannerHandler
extern PANOREL_EXPORT const QString SCANNER_DOCUMENT_ERROR;
/// "scanner.document.state", DocumentScannerHandler
extern PANOREL_EXPORT const QString SCANNER_DOCUMENT_STATE;
/// "scanner.document.finish", DocumentScannerHandler
extern PANOREL_EXPORT const QString SCANNER_DOCUMENT_FINISH;
/// "scanner.document.progress", DocumentScannerHandler
extern PANOREL_EXPORT const QString SCANNER_DOCUMENT_PROGRESS;
/// "scanner.passport.response", PassportScannerHandler
extern PANOREL_EXPORT const QString SCANNER_PASSPORT_RESPONSE;
/// "scanner.document.response", DocumentScannerHandler
extern PANOREL_EXPORT const QString SCANNER_DOCUMENT_RESPONSE;
/// "record.audio.response", RecordAudioHandler
extern PANOREL_EXPORT const QString RECORD_AUDIO_RESPONSE;
/// "mail.sender.response", MailSenderHandler
extern PANOREL_EXPORT const QString MAIL_SENDER_RESPONSE;
/// "keyboard.control.response", KeyboardControlHandler
extern PANOREL_EXPORT const QString KEYBOARD_CONTROL_RESPONSE;
/// "printer.state.info", PrintStateHandler
extern PANOREL_EXPORT const QString PRINT_STATE_INFO;

// Forwarded to the page; only host code publishes it.
/// "parameters.response"
extern PANOREL_EXPORT const QString PARAMETERS_RESPONSE;

// Reserved for host code and pages; the library neither publishes nor handles them.
/// "cookie.set"
extern PANOREL_EXPORT const QString COOKIE_SET;
/// "cookie.set.done"
extern PANOREL_EXPORT const QString COOKIE_SET_DONE;
/// "parameters.get"
extern PANOREL_EXPORT const QString PARAMETERS_GET;
/// "system.custom.event.js"
extern PANOREL_EXPORT const QString CUSTOM_EVENT_JS;

} // namespace constants
} // namespace panorel
