#include "benchmarks/page/OtherRoads.h"

#include "benchmarks/page/Topics.h"

#include <QJsonDocument>
#include <QUrl>
#include <QUrlQuery>
#include <QWebEnginePage>
#include <QWebSocket>

namespace {

QString textOf(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

QJsonObject objectOf(const QString &text)
{
    return QJsonDocument::fromJson(text.toUtf8()).object();
}

} // namespace

SocketRoad::SocketRoad(const QString &name)
    : Road(QStringLiteral("road=") + name)
{
    m_view.setPage(new QWebEnginePage(&m_profile, &m_view));
    if (!m_server.listen(QHostAddress::LocalHost))
        qFatal("no port on the loopback interface: %s", qPrintable(m_server.errorString()));
    QObject::connect(&m_server, &QWebSocketServer::newConnection, &m_server, [this] {
        m_socket = m_server.nextPendingConnection();
        connected();
    });
}

void SocketRoad::prepare(const QString &text) { m_event = eventEnvelope(text); }

QWebEngineView *SocketRoad::load(const QUrl &url)
{
    QUrl withPort = url;
    QUrlQuery query(url);
    query.addQueryItem(QStringLiteral("port"), QString::number(m_server.serverPort()));
    withPort.setQuery(query);
    m_view.load(withPort);
    return &m_view;
}

PlainSocketRoad::PlainSocketRoad()
    : SocketRoad(QStringLiteral("socket"))
{ }

void PlainSocketRoad::connected()
{
    QObject::connect(socket(), &QWebSocket::textMessageReceived, socket(),
                     [this](const QString &text) {
                         const QJsonObject request = objectOf(text);
                         if (request.value(QStringLiteral("type")).toString() == topics::done)
                             setDone();
                         else
                             send(echoEnvelope(request));
                     });
}

void PlainSocketRoad::send() { send(event()); }

void PlainSocketRoad::send(const QJsonObject &envelope)
{
    socket()->sendTextMessage(textOf(envelope));
}

SocketTransport::SocketTransport(QWebSocket *socket)
    : QWebChannelAbstractTransport(socket)
    , m_socket(socket)
{
    connect(socket, &QWebSocket::textMessageReceived, this,
            [this](const QString &text) { Q_EMIT messageReceived(objectOf(text), this); });
}

void SocketTransport::sendMessage(const QJsonObject &message)
{
    m_socket->sendTextMessage(textOf(message));
}

SocketChannelRoad::SocketChannelRoad()
    : SocketRoad(QStringLiteral("socket-channel"))
{
    m_bridge.receive = [this](const QJsonObject &request) {
        if (request.value(QStringLiteral("type")).toString() == topics::done)
            setDone();
        else
            Q_EMIT m_bridge.message(echoEnvelope(request));
    };
    m_channel.registerObject(QStringLiteral("_karvel_internal"), &m_bridge);
}

void SocketChannelRoad::connected() { m_channel.connectTo(new SocketTransport(socket())); }

void SocketChannelRoad::send() { Q_EMIT m_bridge.message(event()); }

ScriptRoad::ScriptRoad()
    : Road(QStringLiteral("road=script"))
{ }

void ScriptRoad::prepare(const QString &text) { m_event = eventEnvelope(text); }

void ScriptRoad::send()
{
    m_view.page()->runJavaScript(QStringLiteral("receive(%1)").arg(textOf(m_event)));
}

QWebEngineView *ScriptRoad::load(const QUrl &url)
{
    m_view.load(url);
    return &m_view;
}
