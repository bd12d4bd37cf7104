#include "panorel/PanorelQueueBrocker.h"

#include "panorel/Constants.h"
#include "panorel/FunctionalHandler.h"
#include "panorel/Logging.h"

#include <QSet>

#include <utility>

namespace panorel {

namespace {

/// Deletes handlers with itself. Handed to deleteLater(), it outlives every signal and every nested
/// event loop that is running now.
class RetiredHandlers : public QObject
{
public:
    RetiredHandlers(const QList<MessageHandler *> &handlers, QObject *parent)
        : QObject(parent)
        , m_handlers(handlers)
    { }

    ~RetiredHandlers() override { qDeleteAll(m_handlers); }

private:
    const QList<MessageHandler *> m_handlers;
};

bool isFaceReport(const Message &message)
{
    if (message.type() != constants::GENERAL_TOUCH)
        return false;
    const QVariantMap attributes = message.attributes();
    return attributes.contains(QStringLiteral("rect"))
        || attributes.contains(QStringLiteral("info"));
}

/// Opens the question of QObject, asked in a slot, who called it.
class SenderQuestion : public QObject
{
public:
    static bool isAnswered(const QObject *receiver)
    {
        return (receiver->*(&SenderQuestion::sender))() != nullptr;
    }
};

/// Whether @p handler is in one of its own slots right now, the functors of its connections
/// included.
bool isInASlot(const MessageHandler *handler)
{
    const auto *object = dynamic_cast<const QObject *>(handler);
    return object && SenderQuestion::isAnswered(object);
}

/// Each handler of the table once, without the null ones.
QList<MessageHandler *> distinctHandlers(const QMap<QString, QList<MessageHandler *>> &table)
{
    QList<MessageHandler *> handlers;
    QSet<MessageHandler *> seen{nullptr};
    for (const QList<MessageHandler *> &subscribed : table) {
        for (MessageHandler *handler : subscribed) {
            if (seen.contains(handler))
                continue;
            seen.insert(handler);
            handlers.append(handler);
        }
    }
    return handlers;
}

} // namespace

/// Marks a delivery; after the outermost one the handlers that were cleared in it are deleted.
class PanorelQueueBrocker::DeliveryScope
{
public:
    explicit DeliveryScope(PanorelQueueBrocker *brocker)
        : m_brocker(brocker)
    {
        ++m_brocker->m_deliveries;
    }

    ~DeliveryScope()
    {
        if (--m_brocker->m_deliveries == 0 && !m_brocker->m_cleared.isEmpty())
            m_brocker->deleteLater(std::exchange(m_brocker->m_cleared, {}));
    }

private:
    Q_DISABLE_COPY(DeliveryScope)

    PanorelQueueBrocker *const m_brocker;
};

PanorelQueueBrocker::PanorelQueueBrocker() = default;

PanorelQueueBrocker::~PanorelQueueBrocker()
{
    // Repeated because a handler's destructor may subscribe another one, and because one that is in
    // a slot of its own waits first.
    while (!m_handlers.isEmpty() || !m_retired.children().isEmpty()) {
        PanorelQueueBrocker::clear();
        const QObjectList retired = m_retired.children();
        qDeleteAll(retired);
    }
}

void PanorelQueueBrocker::publish(const Message &message)
{
    if (!isFaceReport(message))
        qCDebug(lcPanorel) << message.toJson();

    const auto subscribed = m_handlers.constFind(message.type());
    if (subscribed == m_handlers.constEnd())
        return;

    // A copy: handlers may change the table while they run.
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const QList<MessageHandler *> snapshot = *subscribed;
    const DeliveryScope delivery(this);
    for (MessageHandler *handler : snapshot) {
        if (handler)
            handler->handle(message);
    }
}

void PanorelQueueBrocker::subscribe(QString topic, MessageHandler *handler)
{
    qCDebug(lcPanorel) << "Subsctribe default handler" << topic;
    m_handlers[topic].append(handler);
}

void PanorelQueueBrocker::subscribe(QString topic, std::function<void(Message)> function)
{
    qCDebug(lcPanorel) << "Subsctribe functional handler" << topic;
    subscribe(topic, new FunctionalHandler(std::move(function)));
}

void PanorelQueueBrocker::unSubscribe(QString topic, MessageHandler *handler)
{
    const auto subscribed = m_handlers.find(topic);
    if (subscribed != m_handlers.end())
        subscribed->removeOne(handler);
}

void PanorelQueueBrocker::clear()
{
    if (m_handlers.isEmpty())
        return;

    qCDebug(lcPanorel) << "Delete handlers";
    // The table goes first: a handler that publishes while it is deleted reaches nobody.
    const QList<MessageHandler *> handlers = distinctHandlers(std::exchange(m_handlers, {}));
    for (MessageHandler *handler : handlers)
        handler->m_retired = true;
    if (m_deliveries > 0) {
        m_cleared += handlers;
        return;
    }

    QList<MessageHandler *> inASlot;
    for (MessageHandler *handler : handlers) {
        if (isInASlot(handler))
            inASlot.append(handler);
        else
            delete handler;
    }
    if (!inASlot.isEmpty())
        deleteLater(inASlot);
}

void PanorelQueueBrocker::deleteLater(const QList<MessageHandler *> &handlers)
{
    (new RetiredHandlers(handlers, &m_retired))->deleteLater();
}

} // namespace panorel
