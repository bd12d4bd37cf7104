#include "tests/support/TestPlugin.h"

#include "host/IDevice.h"
#include "host/IKeyboard.h"
#include "host/IPrinter.h"
#include "host/IUsersDatabase.h"

#include <QDebug>
#include <QtTest>

bool operator==(const HostCall &left, const HostCall &right)
{
    return left.name == right.name && left.arguments == right.arguments;
}

char *toString(const HostCall &call)
{
    QString text;
    QDebug(&text) << call.name << call.arguments;
    return QTest::toString(text);
}

TestPlugin::TestPlugin()
    : interaction(QSharedPointer<TestInteractionService>::create())
    , replacer(QSharedPointer<TestMacrosReplacer>::create())
{
    const auto keep = [this](const char *name, const QVariantList &arguments = {}) {
        calls.append({QString::fromLatin1(name), arguments});
    };
    connect(this, &PluginInterface::signalGetReplica, this,
            [this, keep](const Replica::Type &type, const QVariant &category,
                         const bool &useGeneral, const bool &useBiometry, const FaceInfo &face) {
                keep("getReplica",
                     {static_cast<int>(type), category, useGeneral, useBiometry, face.id()});
                return replica;
            });
    connect(this, &PluginInterface::signalGetAppReplica, this,
            [this, keep](const QString &step, const QVariant &category, const bool &useGeneral,
                         const bool &useBiometry, const FaceInfo &face) {
                keep("getAppReplica", {step, category, useGeneral, useBiometry, face.id()});
                return replica;
            });
    connect(this, &PluginInterface::signalScriptStart, this, [this, keep](const QString &script) {
        keep("scriptStart", {script});
        return scriptResult;
    });
    connect(this, &PluginInterface::signalScriptCancel, this, [keep] { keep("scriptCancel"); });
    connect(this, &PluginInterface::signalLanguage, this,
            [keep](const QString &language) { keep("language", {language}); });
    connect(this, &PluginInterface::signalOperatorCall, this,
            [keep](const bool &call) { keep("operatorCall", {call}); });
}

QVariant TestPlugin::appParameter(const QString &, const QVariant &defaultValue) const
{
    return defaultValue;
}

QVariant TestPlugin::sysParameter(const QString &, const QVariant &defaultValue) const
{
    return defaultValue;
}

QMap<QString, QVariant> TestPlugin::appParameterGroup(const QString &) const { return {}; }

QMap<QString, QVariant> TestPlugin::sysParameterGroup(const QString &) const { return {}; }

QMap<QString, QVariant> TestPlugin::emailParameters() const { return {}; }

QSharedPointer<IDevice> TestPlugin::device(const Device &) const { return {}; }

QSharedPointer<IPrinter> TestPlugin::printer(const Device &) const { return {}; }

QSharedPointer<IKeyboard> TestPlugin::keyboard() const { return {}; }

QSharedPointer<IUsersDatabase> TestPlugin::databaseUsers() const { return {}; }

QSharedPointer<IInteractionService> TestPlugin::interactionService() const { return interaction; }

QSharedPointer<IMacrosReplacer> TestPlugin::macrosReplacer() const { return replacer; }
