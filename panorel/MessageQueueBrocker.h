#pragma once

#include "panorel/Export.h"
#include "panorel/Message.h"

#include <QString>

#include <functional>

namespace panorel {

class MessageHandler;

/// The message bus: delivers each message to the handlers subscribed to its topic. Topics are
/// compared exactly. Call on the GUI thread only; there is no lock.
class PANOREL_EXPORT MessageQueueBrocker
{
public:
    MessageQueueBrocker() = default;
    virtual ~MessageQueueBrocker();

    /// Delivers @p message to a snapshot of its topic's handlers, in subscription order, before
    /// returning. A topic without handlers is no error.
    virtual void publish(const Message &message) = 0;

    /// Appends @p handler to the topic's handlers; a handler subscribed twice receives twice. From
    /// now on it must be deleted by nobody else, unless it is unsubscribed first and no delivery is
    /// running.
    virtual void subscribe(QString topic, MessageHandler *handler) = 0;

    /// Subscribes @p function through a handler that the broker owns.
    virtual void subscribe(QString topic, std::function<void(Message)> function) = 0;

    /// Removes the first subscription of @p handler to @p topic and leaves the handler alive. A
    /// delivery that is running still reaches it.
    virtual void unSubscribe(QString topic, MessageHandler *handler) = 0;

    /// Drops every subscription and deletes each subscribed handler once.
    virtual void clear() = 0;

private:
    Q_DISABLE_COPY(MessageQueueBrocker)
};

} // namespace panorel
