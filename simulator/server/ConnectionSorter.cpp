#include "simulator/server/ConnectionSorter.h"

#include <QSocketNotifier>
#include <QTcpSocket>
#include <QTimer>

#include <cstring>
#include <sys/socket.h>
#include <unistd.h>

namespace simulator {

namespace {

const char ChannelRequest[] = "GET /channel";
const int RequestSize = sizeof ChannelRequest; // and the byte after it
const int MaximumWaiting = 64;

} // namespace

ConnectionSorter::ConnectionSorter(QObject *parent)
    : QTcpServer(parent)
{ }

ConnectionSorter::~ConnectionSorter()
{
    for (auto it = m_waiting.cbegin(); it != m_waiting.cend(); ++it) {
        delete it.value();
        ::close(static_cast<int>(it.key()));
    }
}

void ConnectionSorter::setPatience(int milliseconds) { m_patience = milliseconds; }

void ConnectionSorter::incomingConnection(qintptr descriptor)
{
    // Whoever has kept silent the longest makes room, so that silence locks nobody out.
    if (m_waiting.size() >= MaximumWaiting)
        giveUp(m_order.constFirst());
    // The kernel wakes us up when there is enough to tell the two apart, or the other side has
    // closed.
    ::setsockopt(static_cast<int>(descriptor), SOL_SOCKET, SO_RCVLOWAT, &RequestSize,
                 sizeof RequestSize);
    auto *notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read, this);
    m_waiting.insert(descriptor, notifier);
    m_order.append(descriptor);
    connect(notifier, &QSocketNotifier::activated, this, [this, descriptor] { sort(descriptor); });
    QTimer::singleShot(m_patience, notifier, [this, descriptor, notifier] {
        if (m_waiting.value(descriptor) == notifier)
            giveUp(descriptor);
    });
}

void ConnectionSorter::sort(qintptr descriptor)
{
    char bytes[RequestSize];
    const ssize_t size =
        ::recv(static_cast<int>(descriptor), bytes, sizeof bytes, MSG_PEEK | MSG_DONTWAIT);
    if (size < RequestSize) {
        giveUp(descriptor); // closed, before it has said anything
        return;
    }
    forget(descriptor);
    const int one = 1;
    ::setsockopt(static_cast<int>(descriptor), SOL_SOCKET, SO_RCVLOWAT, &one, sizeof one);

    const int name = RequestSize - 1;
    const bool isChannel =
        std::memcmp(bytes, ChannelRequest, name) == 0 && (bytes[name] == '?' || bytes[name] == ' ');
    if (!isChannel) {
        Q_EMIT pageAsked(descriptor);
        return;
    }
    auto *socket = new QTcpSocket;
    if (socket->setSocketDescriptor(descriptor)) {
        Q_EMIT channelAsked(socket);
    } else {
        delete socket;
        ::close(static_cast<int>(descriptor));
    }
}

void ConnectionSorter::giveUp(qintptr descriptor)
{
    forget(descriptor);
    ::close(static_cast<int>(descriptor));
}

void ConnectionSorter::forget(qintptr descriptor)
{
    // It may be the notifier itself that called.
    QSocketNotifier *notifier = m_waiting.take(descriptor);
    m_order.removeOne(descriptor);
    notifier->setEnabled(false);
    notifier->disconnect(this);
    notifier->deleteLater();
}

} // namespace simulator
