#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

class PluginInterface;

namespace panorel {

/// Steers the robot's base. Never replies; the drive reports through the widget.
class PANOREL_EXPORT DriveControlHandler : public MessageHandler
{
public:
    /// @p plugin is not owned.
    explicit DriveControlHandler(PluginInterface *plugin);

    /// "system.drive.control".
    QString topic() const;

    /// Does what is present, in this order: "drive_point" (number of a point, of which 16 bits
    /// count), "drive_pause" (true pauses, false goes on), "drive_mode" (integer, DriveMode),
    /// "drive_charger" (true goes there, false leaves).
    void handle(Message message) override;

private:
    PluginInterface *m_plugin;
};

} // namespace panorel
