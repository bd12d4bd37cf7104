#pragma once

#include "panorel/Export.h"
#include "panorel/MessageQueueBrocker.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QString>

#include <array>
#include <bitset>

class QLoggingCategory;

namespace panorel {

/// The bus of one widget: a synchronous publish/subscribe table. There is no queue, in spite of
/// the name, and no thread hop.
///
/// Handlers may do anything to the broker while they run. A running delivery always reaches every
/// handler of its snapshot; handlers cleared meanwhile stay alive until the outermost delivery has
/// ended and the event loop has turned. A handler that is a QObject and in one of its own slots
/// stays alive until the event loop has turned, too. So none dies inside its own code, and none of
/// the objects that it owns inside its own signal. Only deleting the broker itself has to wait until
/// no handler is running.
///
/// A handler that is subscribed again in the delivery in which it was cleared lives on. One that
/// another handler unsubscribes during a delivery still gets the message: keep it alive until then.
class PANOREL_EXPORT PanorelQueueBrocker : public MessageQueueBrocker
{
public:
    PanorelQueueBrocker();

    /// Deletes every handler, those included that still wait for the event loop.
    ~PanorelQueueBrocker() override;

    /// Also writes the message's JSON to the log (debug, "panorel"), except a
    /// "system.general.touch" with "rect" or "info": face reports are large and frequent.
    void publish(const Message &message) override;
    void subscribe(QString topic, MessageHandler *handler) override;
    void subscribe(QString topic, std::function<void(Message)> function) override;
    void unSubscribe(QString topic, MessageHandler *handler) override;

    /// Outside a delivery the handlers are deleted before this returns, but for those that are in
    /// one of their own slots.
    void clear() override;

private:
    struct Subscribers;

    /// A way into the table by the address of a topic's text: the topic that somebody subscribed to
    /// and all copies of it share one. It may lack topics, and never holds one that the table lacks.
    struct Shortcut
    {
        const void *text;
        MessageHandler *only; // null unless there is exactly one subscriber
        Subscribers *subscribers;
    };

    class RetiredHandlers;
    class DeliveryScope;
    class ReadingScope;

    const Shortcut &shortcut(const QString &topic) const;
    void deliver(const Message &message, Subscribers *subscribers);
    template <typename Change>
    void change(const QString &topic, Change change);
    QList<MessageHandler *> takeHandlers();
    void deleteLater(const QList<MessageHandler *> &handlers);

    const QLoggingCategory &m_log;
    QHash<QString, Subscribers *> m_table; // owned; what a delivery reads is replaced, not changed
    std::array<Shortcut, 512> m_shortcuts{};

    /// What topics of the table look like at a glance; most others look like none of them.
    std::bitset<4096> m_looks;

    int m_deliveries = 0;
    QList<MessageHandler *> m_cleared; // during the running delivery
    QObject m_retired; // parent of what waits for the event loop
};

} // namespace panorel
