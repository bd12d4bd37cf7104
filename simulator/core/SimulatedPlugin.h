#pragma once

#include "host/PluginInterface.h"
#include "simulator/core/RobotDevices.h"
#include "simulator/core/SettingsStore.h"

namespace simulator {

/// The robot as the screen sees it, out of simulated parts. GUI thread.
class SimulatedPlugin : public PluginInterface
{
    Q_OBJECT

public:
    explicit SimulatedPlugin(const RobotDevices &devices, QObject *parent = nullptr);

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

    /// The stores themselves, to be changed while the robot runs.
    SettingsStore &applicationSettings();
    SettingsStore &systemSettings();
    /// emailParameters() are its group "account".
    SettingsStore &emailSettings();
    void setEmailParameters(const QMap<QString, QVariant> &parameters);

private:
    RobotDevices m_devices;
    SettingsStore m_application;
    SettingsStore m_system;
    SettingsStore m_email;
};

} // namespace simulator
