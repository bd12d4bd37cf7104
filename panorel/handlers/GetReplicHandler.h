#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

namespace panorel {

class MessageQueueBrocker;
class ReplicContext;

/// Tells the page which replica the dialog engine would say, without saying it.
class PANOREL_EXPORT GetReplicHandler : public MessageHandler
{
public:
    /// Nothing is owned.
    GetReplicHandler(ReplicContext *context, MessageQueueBrocker *brocker);

    /// "dialog.replica.get".
    QString topic() const;

    /// "step", or without it "replica_type", says which; "category", "use_general", "use_biometry"
    /// and "face" narrow the choice. Answered by "dialog.replica.load" with "replica"; not answered
    /// when there is none.
    void handle(Message message) override;

private:
    ReplicContext *m_context;
    MessageQueueBrocker *m_brocker;
};

} // namespace panorel
