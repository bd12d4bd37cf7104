#include "simulator/server/BrowserConnections.h"

#include "simulator/server/AccessRules.h"
#include "simulator/server/BrowserTransport.h"

#include <QHostAddress>
#include <QTcpSocket>
#include <QTimer>
#include <QUrlQuery>
#include <QWebChannel>
#include <QWebSocket>
#include <QWebSocketCorsAuthenticator>
#include <QWebSocketServer>

#include <memory>

namespace simulator {

namespace {

// A picture for the printer may be large; what the robot's screen takes has no limit.
const quint64 MaximumMessage = quint64{256} * 1024 * 1024;

} // namespace

BrowserConnections::BrowserConnections(const QHash<QString, QObject *> &objects,
                                       const AccessRules *rules, QObject *parent)
    : QObject(parent)
    , m_objects(objects)
    , m_rules(rules)
    , m_server(new QWebSocketServer(QStringLiteral("panorel-simulator"),
                                    QWebSocketServer::NonSecureMode, this))
{
    connect(m_server, &QWebSocketServer::newConnection, this, &BrowserConnections::onConnected);
    connect(m_server, &QWebSocketServer::originAuthenticationRequired, this,
            [this](QWebSocketCorsAuthenticator *authenticator) {
                const bool allowed = m_rules->isOrigin(authenticator->origin());
                authenticator->setAllowed(allowed);
                if (!allowed)
                    Q_EMIT refused(tr("A page from %1 was refused; --allow-origin %1 lets it in.")
                                       .arg(authenticator->origin()));
            });
}

void BrowserConnections::setSingle(bool single) { m_isSingle = single; }

void BrowserConnections::setHandshakeTime(int milliseconds) { m_handshakeTime = milliseconds; }

void BrowserConnections::setPingTime(int milliseconds) { m_pingTime = milliseconds; }

void BrowserConnections::take(QTcpSocket *socket)
{
    socket->setParent(m_server);
    // The server limits the handshakes only of connections that it has accepted itself.
    auto *limit = new QTimer(socket);
    limit->setSingleShot(true);
    connect(limit, &QTimer::timeout, socket, [socket] { socket->abort(); });
    const Peer peer{socket->peerAddress().toString(), socket->peerPort()};
    m_limits.insert(peer, limit);
    connect(limit, &QObject::destroyed, this, [this, peer, limit] {
        if (m_limits.value(peer) == limit)
            m_limits.remove(peer);
    });
    limit->start(m_handshakeTime);
    m_server->handleConnection(socket);
}

int BrowserConnections::count() const { return m_count; }

void BrowserConnections::onConnected()
{
    while (QWebSocket *socket = m_server->nextPendingConnection()) {
        socket->setParent(this);
        delete m_limits.value({socket->peerAddress().toString(), socket->peerPort()});
        connect(socket, &QWebSocket::disconnected, socket, &QObject::deleteLater);
        const QString reason = obstacle(socket);
        if (reason.isEmpty()) {
            open(socket);
        } else {
            Q_EMIT refused(reason);
            socket->close(QWebSocketProtocol::CloseCodePolicyViolated, reason);
        }
    }
}

QString BrowserConnections::obstacle(const QWebSocket *socket) const
{
    const QUrlQuery query(socket->requestUrl());
    const QString token = query.queryItemValue(QStringLiteral("token"), QUrl::FullyDecoded);
    if (!m_rules->isToken(token))
        return tr("The token is wrong: open the address that the simulator printed.");
    if (m_isSingle && m_count > 0)
        return tr("Another browser is connected, and only one is allowed.");
    return {};
}

void BrowserConnections::open(QWebSocket *socket)
{
    socket->setMaxAllowedIncomingMessageSize(MaximumMessage);
    socket->setMaxAllowedIncomingFrameSize(MaximumMessage);
    auto *channel = new QWebChannel(socket);
    channel->registerObjects(m_objects);
    channel->connectTo(new BrowserTransport(socket, channel));
    watch(socket);
    ++m_count;
    connect(socket, &QWebSocket::disconnected, this, [this] {
        --m_count;
        Q_EMIT countChanged(m_count);
    });
    Q_EMIT countChanged(m_count);
}

// A machine that vanishes closes nothing.
void BrowserConnections::watch(QWebSocket *socket)
{
    auto *pings = new QTimer(socket);
    auto answered = std::make_shared<bool>(true);
    connect(socket, &QWebSocket::pong, pings, [answered] { *answered = true; });
    connect(pings, &QTimer::timeout, socket, [socket, answered] {
        if (!*answered) {
            socket->abort();
            return;
        }
        *answered = false;
        socket->ping();
    });
    pings->start(m_pingTime);
}

} // namespace simulator
