#include "panorel/PanorelQueueBrocker.h"

#include "panorel/Constants.h"
#include "panorel/FunctionalHandler.h"
#include "panorel/Logging.h"

#include <QSet>

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace panorel {

namespace {

/// Where the text of @p text lies; two that lie at one address are one.
const void *addressOfText(const QString &text) { return const_cast<QString &>(text).data_ptr(); }

std::size_t indexOfAddress(const void *address)
{
    const auto number = reinterpret_cast<std::uintptr_t>(address);
    return number >> 4 ^ number >> 12;
}

/// A number from a few characters of @p topic.
std::size_t lookOf(const QString &topic)
{
    const int size = topic.size();
    if (size == 0)
        return 0;
    const QChar *const text = topic.constData();
    const unsigned last = text[size - 1].unicode();
    const unsigned middle = text[size / 2].unicode();
    const unsigned nearLast = text[size - 1 - size / 8].unicode();
    return static_cast<unsigned>(size) ^ last << 2 ^ middle << 5 ^ nearLast << 7;
}

bool isFaceReport(const Message &message)
{
    if (message.type() != constants::GENERAL_TOUCH)
        return false;
    const QVariantMap attributes = message.attributes();
    return attributes.contains(QStringLiteral("rect"))
        || attributes.contains(QStringLiteral("info"));
}

/// Apart from the delivery, which pays nothing for it.
Q_NEVER_INLINE void log(const Message &message)
{
    if (!isFaceReport(message))
        qCDebug(lcPanorel) << message.toJson();
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

} // namespace

/// The handlers of one topic. While a delivery reads them nobody writes: a change takes place in a
/// copy, and the last reader deletes what was replaced.
struct PanorelQueueBrocker::Subscribers
{
    std::vector<MessageHandler *> handlers;
    int readers = 0;
    bool isReplaced = false;

    void replace()
    {
        if (readers == 0)
            delete this;
        else
            isReplaced = true;
    }
};

/// Deletes handlers with itself. Handed to deleteLater(), it outlives every signal and every nested
/// event loop that is running now.
class Q_DECL_HIDDEN PanorelQueueBrocker::RetiredHandlers : public QObject
{
public:
    RetiredHandlers(const QList<MessageHandler *> &handlers, PanorelQueueBrocker *brocker)
        : QObject(&brocker->m_retired)
        , m_handlers(handlers)
        , m_brocker(brocker)
    { }

    ~RetiredHandlers() override
    {
        // Before the program's event loop runs, one that a delivery runs brings us here. Whoever
        // publishes may be one of the handlers: they wait for this delivery, too.
        if (m_brocker->m_deliveries > 0)
            m_brocker->m_cleared += m_handlers;
        else
            qDeleteAll(m_handlers);
    }

private:
    const QList<MessageHandler *> m_handlers;
    PanorelQueueBrocker *const m_brocker;
};

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
        if (--m_brocker->m_deliveries == 0 && Q_UNLIKELY(!m_brocker->m_cleared.isEmpty()))
            m_brocker->deleteLater(std::exchange(m_brocker->m_cleared, {}));
    }

private:
    Q_DISABLE_COPY(DeliveryScope)

    PanorelQueueBrocker *const m_brocker;
};

/// Marks a list of subscribers as being read.
class PanorelQueueBrocker::ReadingScope
{
public:
    explicit ReadingScope(Subscribers *subscribers)
        : m_subscribers(subscribers)
    {
        ++m_subscribers->readers;
    }

    ~ReadingScope()
    {
        if (--m_subscribers->readers == 0 && m_subscribers->isReplaced)
            delete m_subscribers;
    }

private:
    Q_DISABLE_COPY(ReadingScope)

    Subscribers *const m_subscribers;
};

PanorelQueueBrocker::PanorelQueueBrocker()
    : m_log(lcPanorel())
{ }

PanorelQueueBrocker::~PanorelQueueBrocker()
{
    // Repeated because a handler's destructor may subscribe another one, and because one that is in
    // a slot of its own waits first.
    while (!m_table.isEmpty() || !m_retired.children().isEmpty()) {
        PanorelQueueBrocker::clear();
        const QObjectList retired = m_retired.children();
        qDeleteAll(retired);
    }
}

void PanorelQueueBrocker::publish(const Message &message)
{
    if (Q_UNLIKELY(m_log.isDebugEnabled()))
        log(message);

    const Shortcut &known = shortcut(message.m_type);
    if (known.text == addressOfText(message.m_type)) {
        if (MessageHandler *const handler = known.only) {
            const DeliveryScope delivery(this);
            handler->handle(message);
        } else {
            deliver(message, known.subscribers);
        }
    } else if (m_looks.test(lookOf(message.m_type) % m_looks.size())) {
        if (Subscribers *const subscribers = m_table.value(message.m_type))
            deliver(message, subscribers);
    }
}

void PanorelQueueBrocker::deliver(const Message &message, Subscribers *subscribers)
{
    const DeliveryScope delivery(this);
    const ReadingScope reading(subscribers);
    // A handler may be the end of the publisher's.
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const Message own(message);
    for (MessageHandler *handler : subscribers->handlers) {
        if (handler)
            handler->handle(own);
    }
}

/// Where the shortcut to @p topic is when there is one.
const PanorelQueueBrocker::Shortcut &PanorelQueueBrocker::shortcut(const QString &topic) const
{
    return m_shortcuts[indexOfAddress(addressOfText(topic)) % m_shortcuts.size()];
}

/// Changes the handlers of @p topic, which a delivery may be reading.
template <typename Change>
void PanorelQueueBrocker::change(const QString &topic, Change change)
{
    auto entry = m_table.find(topic);
    if (entry == m_table.end()) {
        entry = m_table.insert(topic, new Subscribers);
        m_looks.set(lookOf(topic) % m_looks.size());
    } else if ((*entry)->readers > 0) {
        auto *copy = new Subscribers;
        copy->handlers = (*entry)->handlers;
        std::exchange(*entry, copy)->replace();
    }
    auto &handlers = (*entry)->handlers;
    change(handlers);
    // The last one to come has the shortcut.
    const void *const text = addressOfText(entry.key());
    m_shortcuts[indexOfAddress(text) % m_shortcuts.size()] = {
        text, handlers.size() == 1 ? handlers.front() : nullptr, *entry};
}

void PanorelQueueBrocker::subscribe(QString topic, MessageHandler *handler)
{
    qCDebug(lcPanorel) << "Subsctribe default handler" << topic;
    if (m_cleared.removeOne(handler))
        handler->m_retired = false; // cleared in this delivery, and wanted again
    change(topic, [handler](auto &handlers) { handlers.push_back(handler); });
}

void PanorelQueueBrocker::subscribe(QString topic, std::function<void(Message)> function)
{
    qCDebug(lcPanorel) << "Subsctribe functional handler" << topic;
    subscribe(topic, new FunctionalHandler(std::move(function)));
}

void PanorelQueueBrocker::unSubscribe(QString topic, MessageHandler *handler)
{
    if (!m_table.contains(topic))
        return;
    change(topic, [handler](auto &handlers) {
        const auto first = std::find(handlers.begin(), handlers.end(), handler);
        if (first != handlers.end())
            handlers.erase(first);
    });
}

void PanorelQueueBrocker::clear()
{
    if (m_table.isEmpty())
        return;

    qCDebug(lcPanorel) << "Delete handlers";
    // The table goes first: a handler that publishes while it is deleted reaches nobody.
    const QList<MessageHandler *> handlers = takeHandlers();
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

/// Empties the table; each of its handlers once, without the null ones, by the order of the topics.
QList<MessageHandler *> PanorelQueueBrocker::takeHandlers()
{
    m_shortcuts.fill({});
    m_looks.reset();
    const QHash<QString, Subscribers *> table = std::exchange(m_table, {});
    QStringList topics = table.keys();
    topics.sort();

    QList<MessageHandler *> handlers;
    QSet<MessageHandler *> seen{nullptr};
    for (const QString &topic : qAsConst(topics)) {
        Subscribers *const subscribers = table.value(topic);
        for (MessageHandler *handler : subscribers->handlers) {
            if (seen.contains(handler))
                continue;
            seen.insert(handler);
            handlers.append(handler);
        }
        subscribers->replace();
    }
    return handlers;
}

void PanorelQueueBrocker::deleteLater(const QList<MessageHandler *> &handlers)
{
    (new RetiredHandlers(handlers, this))->deleteLater();
}

} // namespace panorel
