#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

namespace panorel {

class MessageQueueBrocker;

/// Tells the page which robot it runs on.
class PANOREL_EXPORT GetEnvironmentHandler : public MessageHandler
{
public:
    /// @p brocker is not owned.
    explicit GetEnvironmentHandler(MessageQueueBrocker *brocker);

    /// "system.environment.get".
    QString topic() const;

    /// Answered by "system.environment.load" with "environment": "uuid_robot", "uuid_owner", "name",
    /// "id" (what the command "uname -n" writes, line break included) and "date_of_creation"
    /// (ISO 8601). Attributes do not count. Blocks until the command has ended.
    void handle(Message message) override;

private:
    MessageQueueBrocker *m_brocker;
};

} // namespace panorel
