#include "simulator/core/SimulatedPlugin.h"

#include "simulator/core/SimulatedDispenser.h"
#include "simulator/core/SimulatedInteractionService.h"
#include "simulator/core/SimulatedKeyboard.h"
#include "simulator/core/SimulatedMacrosReplacer.h"
#include "simulator/core/SimulatedPrinter.h"
#include "simulator/core/SimulatedScanner.h"
#include "simulator/core/SqliteUsersDatabase.h"

namespace simulator {

namespace {

QString accountGroup() { return QStringLiteral("account"); }

} // namespace

SimulatedPlugin::SimulatedPlugin(const RobotDevices &devices, QObject *parent)
    : PluginInterface(parent)
    , m_devices(devices)
{ }

QVariant SimulatedPlugin::appParameter(const QString &key, const QVariant &defaultValue) const
{
    return m_application.value(key, defaultValue);
}

QVariant SimulatedPlugin::sysParameter(const QString &key, const QVariant &defaultValue) const
{
    return m_system.value(key, defaultValue);
}

QMap<QString, QVariant> SimulatedPlugin::appParameterGroup(const QString &group) const
{
    return m_application.group(group);
}

QMap<QString, QVariant> SimulatedPlugin::sysParameterGroup(const QString &group) const
{
    return m_system.group(group);
}

QMap<QString, QVariant> SimulatedPlugin::emailParameters() const
{
    return m_email.group(accountGroup());
}

QSharedPointer<IDevice> SimulatedPlugin::device(const Device &device) const
{
    switch (device) {
    case Device::Printer:
        return m_devices.printer;
    case Device::CardDispenser:
        return m_devices.dispenser;
    case Device::PassportScanner:
        return m_devices.passportScanner;
    case Device::DocumentScanner:
        return m_devices.documentScanner;
    }
    return {};
}

QSharedPointer<IPrinter> SimulatedPlugin::printer(const Device &device) const
{
    if (device != Device::Printer)
        return {};
    return m_devices.printer;
}

QSharedPointer<IKeyboard> SimulatedPlugin::keyboard() const { return m_devices.keyboard; }

QSharedPointer<IUsersDatabase> SimulatedPlugin::databaseUsers() const { return m_devices.users; }

QSharedPointer<IInteractionService> SimulatedPlugin::interactionService() const
{
    return m_devices.interaction;
}

QSharedPointer<IMacrosReplacer> SimulatedPlugin::macrosReplacer() const { return m_devices.macros; }

SettingsStore &SimulatedPlugin::applicationSettings() { return m_application; }

SettingsStore &SimulatedPlugin::systemSettings() { return m_system; }

SettingsStore &SimulatedPlugin::emailSettings() { return m_email; }

void SimulatedPlugin::setEmailParameters(const QMap<QString, QVariant> &parameters)
{
    const QString prefix = QStringLiteral("/%1/").arg(accountGroup());
    const QStringList before = m_email.group(accountGroup()).keys();
    for (const QString &name : before) {
        if (!parameters.contains(name))
            m_email.remove(prefix + name);
    }
    for (auto it = parameters.cbegin(); it != parameters.cend(); ++it)
        m_email.setValue(prefix + it.key(), it.value());
}

} // namespace simulator
