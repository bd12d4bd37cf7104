#pragma once

#include "tests/support/TestDevices.h"
#include "tests/support/TestServices.h"

#include "host/PluginInterface.h"

/// A host that keeps every request and hands out what a test puts in.
class TestPlugin : public PluginInterface
{
    Q_OBJECT

public:
    TestPlugin();

    QVariant appParameter(const QString &key, const QVariant &defaultValue) const override;
    QVariant sysParameter(const QString &key, const QVariant &defaultValue) const override;
    QMap<QString, QVariant> appParameterGroup(const QString &group) const override;
    QMap<QString, QVariant> sysParameterGroup(const QString &group) const override;
    QMap<QString, QVariant> emailParameters() const override;
    QSharedPointer<IDevice> device(const Device &device) const override;
    QSharedPointer<IPrinter> printer(const Device &device) const override;
    QSharedPointer<IKeyboard> keyboard() const override;
    QSharedPointer<IUsersDatabase> databaseUsers() const override;
    QSharedPointer<IInteractionService> interactionService() const override;
    QSharedPointer<IMacrosReplacer> macrosReplacer() const override;

    QSharedPointer<TestInteractionService> interaction;
    QSharedPointer<TestMacrosReplacer> replacer;
    QSharedPointer<TestUsersDatabase> users; ///< null at first

    // What the robot has; null at first.
    QSharedPointer<TestPrinter> printerDevice;
    QSharedPointer<TestDispenser> dispenser;
    QSharedPointer<TestScanner> passportScanner;
    QSharedPointer<TestScanner> documentScanner;
    QSharedPointer<TestKeyboard> keyboardDevice;

    // Settings by their full keys, groups by their bare names. Lookups are kept as calls.
    QVariantMap appSettings;
    QVariantMap sysSettings;
    QMap<QString, QVariantMap> appGroups;
    QMap<QString, QVariantMap> sysGroups;
    QVariantMap email; ///< the mail account

    QSharedPointer<Replica> replica; ///< given for every replica request
    QStringList scriptResult; ///< given for every script start

    /// In the order in which they were made. Of a face they hold the id.
    mutable QVector<HostCall> calls;
    QVector<FaceInfo> faces; ///< the face of each replica request

private:
    void keep(const char *name, const QVariantList &arguments = {}) const;
    void keepReplicaRequests();
    void keepSpeech();
    void keepScripts();
    void keepFaceControl();
    void keepDrive();
};
