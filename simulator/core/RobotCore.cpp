#include "simulator/core/RobotCore.h"

#include "host/MailSender.h"
#include "host/UserData.h"
#include "simulator/core/OperatorDesk.h"
#include "simulator/core/Outbox.h"
#include "simulator/core/RobotIdentity.h"
#include "simulator/core/ScanSample.h"
#include "simulator/core/ScenarioReader.h"
#include "simulator/core/SimulatedCamera.h"
#include "simulator/core/SimulatedDialogModule.h"
#include "simulator/core/SimulatedDispenser.h"
#include "simulator/core/SimulatedDrive.h"
#include "simulator/core/SimulatedFaces.h"
#include "simulator/core/SimulatedInteractionService.h"
#include "simulator/core/SimulatedKeyboard.h"
#include "simulator/core/SimulatedLanguage.h"
#include "simulator/core/SimulatedMacrosReplacer.h"
#include "simulator/core/SimulatedPlugin.h"
#include "simulator/core/SimulatedPrinter.h"
#include "simulator/core/SimulatedReplicas.h"
#include "simulator/core/SimulatedScanner.h"
#include "simulator/core/SimulatedScripts.h"
#include "simulator/core/SimulatedSpeech.h"
#include "simulator/core/SqliteUsersDatabase.h"
#include "simulator/core/TelephoneLine.h"

#include <QDir>

namespace simulator {

namespace {

const quint32 CameraSeed = 1;

template <typename Part, typename... Arguments>
QSharedPointer<Part> makeIf(bool present, const Arguments &...arguments)
{
    return present ? QSharedPointer<Part>::create(arguments...) : QSharedPointer<Part>();
}

QSharedPointer<SqliteUsersDatabase> makeUsers(const RobotCore::Equipment &equipment)
{
    if (!equipment.users)
        return {};
    if (equipment.dataFolder.isEmpty())
        return QSharedPointer<SqliteUsersDatabase>::create();
    return QSharedPointer<SqliteUsersDatabase>::create(
        QDir(equipment.dataFolder).filePath(SqliteUsersDatabase::fileName()));
}

RobotDevices makeDevices(const RobotCore::Equipment &equipment, const Pace &pace)
{
    RobotDevices devices;
    devices.printer = makeIf<SimulatedPrinter>(equipment.printer, pace);
    devices.dispenser = makeIf<SimulatedDispenser>(equipment.dispenser, pace);
    devices.passportScanner = makeIf<SimulatedScanner>(equipment.passportScanner, pace);
    devices.documentScanner = makeIf<SimulatedScanner>(equipment.documentScanner, pace);
    devices.keyboard = makeIf<SimulatedKeyboard>(equipment.keyboard);
    devices.users = makeUsers(equipment);
    devices.interaction = QSharedPointer<SimulatedInteractionService>::create();
    devices.macros = QSharedPointer<SimulatedMacrosReplacer>::create();
    return devices;
}

} // namespace

RobotCore::RobotCore(QObject *parent)
    : RobotCore(Equipment(), parent)
{ }

RobotCore::RobotCore(const Equipment &equipment, QObject *parent)
    : QObject(parent)
    , m_devices(makeDevices(equipment, m_pace))
    , m_speech(new SimulatedSpeech(m_devices.macros, m_pace, this))
    , m_drive(new SimulatedDrive(m_pace, this))
    , m_scripts(new SimulatedScripts(m_pace, this))
    , m_language(new SimulatedLanguage(this))
    , m_faces(new SimulatedFaces(m_pace, this))
    , m_camera(new SimulatedCamera(m_faces, m_devices.users, m_pace, CameraSeed, this))
    , m_replicas(new SimulatedReplicas(m_language, m_devices.macros, m_devices.users, this))
    , m_operatorDesk(new OperatorDesk(this))
    , m_dialog(new SimulatedDialogModule(m_speech, m_replicas, m_pace, this))
    , m_plugin(new SimulatedPlugin(m_devices, this))
{
    TelephoneLine::instance().setPace(m_pace);
    Outbox::instance().setPace(m_pace);
    m_replicas->setScenario(ScenarioReader().scenario());
    fillSettings();
    fillDevices();
    readData(equipment);
    connectPlugin();
}

QStringList RobotCore::problems() const { return m_problems; }

Pace RobotCore::pace() const { return m_pace; }

SimulatedPlugin *RobotCore::plugin() const { return m_plugin; }

SimulatedDialogModule *RobotCore::dialog() const { return m_dialog; }

SimulatedSpeech *RobotCore::speech() const { return m_speech; }

SimulatedDrive *RobotCore::drive() const { return m_drive; }

SimulatedScripts *RobotCore::scripts() const { return m_scripts; }

SimulatedLanguage *RobotCore::language() const { return m_language; }

SimulatedFaces *RobotCore::faces() const { return m_faces; }

SimulatedCamera *RobotCore::camera() const { return m_camera; }

SimulatedReplicas *RobotCore::replicas() const { return m_replicas; }

OperatorDesk *RobotCore::operatorDesk() const { return m_operatorDesk; }

const RobotDevices &RobotCore::devices() const { return m_devices; }

void RobotCore::readData(const Equipment &equipment)
{
    const auto note = [this](const QString &problem) {
        if (!problem.isEmpty())
            m_problems.append(problem);
    };
    if (m_devices.users)
        note(m_devices.users->problem());
    if (!equipment.dataFolder.isEmpty()) {
        const QDir data(equipment.dataFolder);
        note(RobotIdentity::instance().load(data.filePath(RobotIdentity::fileName())));
    }
    if (!equipment.settingsFolder.isEmpty()) {
        const QDir settings(equipment.settingsFolder);
        note(m_plugin->applicationSettings().open(
            settings.filePath(QStringLiteral("application.ini"))));
        note(m_plugin->systemSettings().open(settings.filePath(QStringLiteral("system.ini"))));
        note(m_plugin->emailSettings().open(settings.filePath(QStringLiteral("email.ini"))));
    }
}

void RobotCore::fillSettings()
{
    SettingsStore &application = m_plugin->applicationSettings();
    application.setValue(QStringLiteral("/screen/title"), QStringLiteral("Welcome"));
    application.setValue(QStringLiteral("/screen/theme"), QStringLiteral("light"));
    application.setValue(QStringLiteral("/screen/timeout"), 60);
    application.setValue(QStringLiteral("/badge/enabled"), true);
    application.setValue(QStringLiteral("/badge/template"), QStringLiteral("visitor"));

    SettingsStore &system = m_plugin->systemSettings();
    system.setValue(QStringLiteral("/sound/volume"), 50);
    system.setValue(QStringLiteral("/sound/microphone"), 70);
    system.setValue(QStringLiteral("/language/default"), m_language->code());
    system.setValue(QStringLiteral("/drive/speed"), 0.6);

    m_plugin->setEmailParameters({
        {QStringLiteral("sender"), QStringLiteral("robot@example.com")},
        {QStringLiteral("login"), QStringLiteral("robot")},
        {QStringLiteral("password"), QStringLiteral("secret")},
        {QStringLiteral("host"), QStringLiteral("mail.example.com")},
        {QStringLiteral("port"), 587},
        {QStringLiteral("sequrity"), static_cast<int>(MailSender::StartTls)},
    });
}

void RobotCore::fillDevices()
{
    if (m_devices.passportScanner)
        m_devices.passportScanner->setResult(ScanSample::passports().constFirst().fields);
    if (m_devices.documentScanner)
        m_devices.documentScanner->setResult(ScanSample::documents().constFirst().fields);
    // Whoever deleted her does not want her back at the next start.
    if (m_devices.users && m_devices.users->isNew()) {
        FaceInfo face;
        face.setId(1);
        face.setType(FaceInfo::User);
        face.setGender(GenderFemale);
        face.setAge(34);
        UserData user;
        user.setInfo(face);
        user.setName(QStringLiteral("Anna"));
        user.setAcquaintanceDate(QDateTime(QDate(2019, 4, 2), QTime(9, 0)));
        user.setLastVisit(QDateTime(QDate(2019, 6, 5), QTime(14, 30)));
        m_devices.users->addUser(user);
    }
}

void RobotCore::connectPlugin()
{
    connect(m_plugin, &PluginInterface::signalGetReplica, m_replicas, &SimulatedReplicas::ofType);
    connect(m_plugin, &PluginInterface::signalGetAppReplica, m_replicas,
            &SimulatedReplicas::ofStep);
    connect(m_plugin, &PluginInterface::signalTTSStart, m_speech, &SimulatedSpeech::say);
    connect(m_plugin, &PluginInterface::signalTTSCancel, m_speech, &SimulatedSpeech::cancel);
    connect(m_plugin, &PluginInterface::signalAnswersAnchor, m_dialog,
            &SimulatedDialogModule::setAnchor);

    connect(m_plugin, &PluginInterface::signalScriptStart, m_scripts, &SimulatedScripts::start);
    connect(m_plugin, &PluginInterface::signalScriptCancel, m_scripts, &SimulatedScripts::cancel);
    connect(m_plugin, &PluginInterface::signalLanguage, m_language, &SimulatedLanguage::setCode);
    connect(m_plugin, &PluginInterface::signalOperatorCall, m_operatorDesk,
            &OperatorDesk::setCalled);

    connect(m_plugin, &PluginInterface::signalFaceTrackingAuto, m_faces,
            &SimulatedFaces::setTrackingAuto);
    connect(m_plugin, &PluginInterface::signalFaceTracking, m_faces, &SimulatedFaces::track);
    connect(m_plugin, &PluginInterface::signalFaceAdd, m_faces, &SimulatedFaces::addFace);
    connect(m_plugin, &PluginInterface::signalFaceDelete, m_faces, &SimulatedFaces::deleteFace);
    connect(m_plugin, &PluginInterface::signalHeadEnable, m_faces, &SimulatedFaces::setHeadEnabled);

    connect(m_plugin, &PluginInterface::signalDrivePoint, m_drive, &SimulatedDrive::driveTo);
    connect(m_plugin, &PluginInterface::signalDrivePause, m_drive, &SimulatedDrive::setPaused);
    connect(m_plugin, &PluginInterface::signalDriveMode, m_drive, &SimulatedDrive::setMode);
    connect(m_plugin, &PluginInterface::signalDriveCharger, m_drive, &SimulatedDrive::setCharger);
}

} // namespace simulator
