#include "panorel/handlers/DriveControlHandler.h"

#include "panorel/Attributes.h"
#include "panorel/Constants.h"
#include "panorel/Logging.h"

#include "host/PluginInterface.h"

namespace panorel {

DriveControlHandler::DriveControlHandler(PluginInterface *plugin)
    : m_plugin(plugin)
{ }

QString DriveControlHandler::topic() const { return constants::DRIVE_CONTROL; }

void DriveControlHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "DriveControlHandler" << message.toJson();

    if (!m_plugin)
        return; // no robot behind the page: dropped

    const QVariantMap attributes = message.attributes();
    const auto end = attributes.constEnd();
    const auto point = attributes.constFind(QStringLiteral("drive_point"));
    if (point != end)
        Q_EMIT m_plugin->signalDrivePoint(static_cast<quint16>(toInt32(*point)));
    const auto pause = attributes.constFind(QStringLiteral("drive_pause"));
    if (pause != end)
        Q_EMIT m_plugin->signalDrivePause(pause->toBool());
    const auto mode = attributes.constFind(QStringLiteral("drive_mode"));
    if (mode != end)
        Q_EMIT m_plugin->signalDriveMode(static_cast<DriveMode>(toInt32(*mode)));
    const auto charger = attributes.constFind(QStringLiteral("drive_charger"));
    if (charger != end)
        Q_EMIT m_plugin->signalDriveCharger(charger->toBool());
}

} // namespace panorel
