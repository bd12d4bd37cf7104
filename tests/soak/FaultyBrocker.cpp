#include "tests/soak/FaultyBrocker.h"

#include "panorel/Constants.h"

#include <QThread>

#include <cstring>
#include <utility>

using panorel::Message;
using panorel::constants::SET_LANGUAGE;
using panorel::constants::USER_SAID;

namespace {

constexpr int faultyMessage = 100; // of its topic
constexpr std::size_t leakBytes = 1024;
constexpr unsigned long sleepMs = 60;

char *volatile leaked = nullptr; // so that no compiler leaves the leak out

} // namespace

QStringList FaultyBrocker::faults()
{
    const QString none;
    return {none,
            QStringLiteral("lost-request"),
            QStringLiteral("doubled-request"),
            QStringLiteral("swapped-requests"),
            QStringLiteral("lost-event"),
            QStringLiteral("doubled-event"),
            QStringLiteral("swapped-events"),
            QStringLiteral("leak"),
            QStringLiteral("sleep")};
}

FaultyBrocker::FaultyBrocker(const QString &fault)
    : m_fault(fault)
{ }

void FaultyBrocker::publish(const Message &message)
{
    if (m_fault == QLatin1String("leak")) {
        leaked = new char[leakBytes];
        std::memset(leaked, 1, leakBytes);
    }
    const QString &topic = m_fault.contains(QLatin1String("request")) ? SET_LANGUAGE : USER_SAID;
    if (m_fault.isEmpty() || message.type() != topic)
        return PanorelQueueBrocker::publish(message);

    ++m_count;
    if (m_count == faultyMessage && m_fault.startsWith(QLatin1String("lost")))
        return;
    if (m_count == faultyMessage && m_fault.startsWith(QLatin1String("swapped"))) {
        m_late = message;
        return;
    }
    if (m_count == faultyMessage && m_fault == QLatin1String("sleep"))
        QThread::msleep(sleepMs);
    PanorelQueueBrocker::publish(message);
    if (m_count == faultyMessage && m_fault.startsWith(QLatin1String("doubled")))
        PanorelQueueBrocker::publish(message);
    if (!m_late.type().isEmpty())
        PanorelQueueBrocker::publish(std::exchange(m_late, Message(QString())));
}
