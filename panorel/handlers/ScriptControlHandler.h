#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

class PluginInterface;

namespace panorel {

class MessageQueueBrocker;

/// Starts and cancels the host's scripts.
class PANOREL_EXPORT ScriptControlHandler : public MessageHandler
{
public:
    /// Nothing is owned.
    ScriptControlHandler(PluginInterface *plugin, MessageQueueBrocker *brocker);

    /// "system.scripts.control".
    QString topic() const;

    /// "start": the script to run, answered at once by "system.scripts.start.result" with "result",
    /// the host's list of texts; then "stop": cancels, its presence counts. Each acts only when
    /// present.
    void handle(Message message) override;

private:
    PluginInterface *m_plugin;
    MessageQueueBrocker *m_brocker;
};

} // namespace panorel
