#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

class PluginInterface;

namespace panorel {

class ReplicContext;

/// Stops the robot's speech and withdraws the macro values of this turn. Never replies.
class PANOREL_EXPORT AbortRobotReplicHandler : public MessageHandler
{
public:
    /// Nothing is owned.
    AbortRobotReplicHandler(ReplicContext *context, PluginInterface *plugin);

    /// "dialog.robot.replic.abort".
    QString topic() const;

    /// Reads no attribute.
    void handle(Message message) override;

private:
    ReplicContext *m_context;
    PluginInterface *m_plugin;
};

} // namespace panorel
