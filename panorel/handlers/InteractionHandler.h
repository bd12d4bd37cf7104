#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

#include <QObject>

class PluginInterface;

namespace panorel {

class MessageQueueBrocker;

/// Starts and stops the host's interaction, and tells the page when one begins or ends, whoever
/// started it.
class PANOREL_EXPORT InteractionHandler : public QObject, public MessageHandler
{
    Q_OBJECT

public:
    /// Follows the interaction service that @p plugin has now. Nothing is owned.
    InteractionHandler(PluginInterface *plugin, MessageQueueBrocker *brocker);

    /// "system.interaction.control".
    QString topic() const;

    /// "state": "Start" or "Stop", letter case counts; anything else does nothing. No reply.
    void handle(Message message) override;

private:
    void publishState(const QVariantMap &attributes);

    PluginInterface *m_plugin;
    MessageQueueBrocker *m_brocker;
};

} // namespace panorel
