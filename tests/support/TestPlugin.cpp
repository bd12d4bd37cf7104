#include "tests/support/TestPlugin.h"

namespace {

void registerIdComparison()
{
    if (QMetaType::hasRegisteredComparators<ID>())
        return;
    QMetaType::registerEqualsComparator<ID>();
    QMetaType::registerDebugStreamOperator<ID>();
}

} // namespace

TestPlugin::TestPlugin()
    : interaction(QSharedPointer<TestInteractionService>::create())
    , replacer(QSharedPointer<TestMacrosReplacer>::create())
{
    registerIdComparison();
    keepReplicaRequests();
    keepSpeech();
    keepScripts();
    keepFaceControl();
    keepDrive();
}

void TestPlugin::keep(const char *name, const QVariantList &arguments) const
{
    calls.append({QString::fromLatin1(name), arguments});
}

void TestPlugin::keepReplicaRequests()
{
    connect(this, &PluginInterface::signalGetReplica, this,
            [this](const Replica::Type &type, const QVariant &category, const bool &useGeneral,
                   const bool &useBiometry, const FaceInfo &face) {
                faces.append(face);
                keep("getReplica",
                     {static_cast<int>(type), category, useGeneral, useBiometry, face.id()});
                return replica;
            });
    connect(this, &PluginInterface::signalGetAppReplica, this,
            [this](const QString &step, const QVariant &category, const bool &useGeneral,
                   const bool &useBiometry, const FaceInfo &face) {
                faces.append(face);
                keep("getAppReplica", {step, category, useGeneral, useBiometry, face.id()});
                return replica;
            });
}

void TestPlugin::keepSpeech()
{
    connect(this, &PluginInterface::signalTTSStart, this,
            [this](const QString &text, const bool &terminate, const bool &flag, const ID &id,
                   const Replica::Type &type) {
                keep("ttsStart",
                     {text, terminate, flag, QVariant::fromValue(id), static_cast<int>(type)});
            });
    connect(this, &PluginInterface::signalTTSCancel, this, [this] { keep("ttsCancel"); });
    connect(this, &PluginInterface::signalAnswersAnchor, this,
            [this](const ID &anchor) { keep("answersAnchor", {QVariant::fromValue(anchor)}); });
    connect(this, &PluginInterface::signalLanguage, this,
            [this](const QString &language) { keep("language", {language}); });
}

void TestPlugin::keepScripts()
{
    connect(this, &PluginInterface::signalScriptStart, this, [this](const QString &script) {
        keep("scriptStart", {script});
        return scriptResult;
    });
    connect(this, &PluginInterface::signalScriptCancel, this, [this] { keep("scriptCancel"); });
    connect(this, &PluginInterface::signalOperatorCall, this,
            [this](const bool &call) { keep("operatorCall", {call}); });
}

void TestPlugin::keepFaceControl()
{
    connect(this, &PluginInterface::signalFaceTrackingAuto, this,
            [this](const bool &automatic) { keep("faceTrackingAuto", {automatic}); });
    connect(this, &PluginInterface::signalFaceTracking, this,
            [this](const long long &idTrack) { keep("faceTracking", {idTrack}); });
    connect(this, &PluginInterface::signalFaceAdd, this,
            [this](const long long &id) { keep("faceAdd", {id}); });
    connect(this, &PluginInterface::signalFaceDelete, this,
            [this](const long long &id) { keep("faceDelete", {id}); });
    connect(this, &PluginInterface::signalHeadEnable, this,
            [this](const bool &enable) { keep("headEnable", {enable}); });
}

void TestPlugin::keepDrive()
{
    connect(this, &PluginInterface::signalDrivePoint, this,
            [this](const unsigned short &point) { keep("drivePoint", {static_cast<int>(point)}); });
    connect(this, &PluginInterface::signalDrivePause, this,
            [this](const bool &pause) { keep("drivePause", {pause}); });
    connect(this, &PluginInterface::signalDriveMode, this,
            [this](const DriveMode &mode) { keep("driveMode", {static_cast<int>(mode)}); });
    connect(this, &PluginInterface::signalDriveCharger, this,
            [this](const bool &charger) { keep("driveCharger", {charger}); });
}

QVariant TestPlugin::appParameter(const QString &key, const QVariant &defaultValue) const
{
    keep("appParameter", {key, defaultValue});
    return appSettings.value(key, defaultValue);
}

QVariant TestPlugin::sysParameter(const QString &key, const QVariant &defaultValue) const
{
    keep("sysParameter", {key, defaultValue});
    return sysSettings.value(key, defaultValue);
}

QMap<QString, QVariant> TestPlugin::appParameterGroup(const QString &group) const
{
    keep("appParameterGroup", {group});
    return appGroups.value(group);
}

QMap<QString, QVariant> TestPlugin::sysParameterGroup(const QString &group) const
{
    keep("sysParameterGroup", {group});
    return sysGroups.value(group);
}

QMap<QString, QVariant> TestPlugin::emailParameters() const { return email; }

QSharedPointer<IDevice> TestPlugin::device(const Device &device) const
{
    switch (device) {
    case Device::Printer:
        return printerDevice;
    case Device::CardDispenser:
        return dispenser;
    case Device::PassportScanner:
        return passportScanner;
    case Device::DocumentScanner:
        return documentScanner;
    }
    return {};
}

QSharedPointer<IPrinter> TestPlugin::printer(const Device &device) const
{
    return device == Device::Printer ? printerDevice : nullptr;
}

QSharedPointer<IKeyboard> TestPlugin::keyboard() const { return keyboardDevice; }

QSharedPointer<IUsersDatabase> TestPlugin::databaseUsers() const { return users; }

QSharedPointer<IInteractionService> TestPlugin::interactionService() const { return interaction; }

QSharedPointer<IMacrosReplacer> TestPlugin::macrosReplacer() const { return replacer; }
