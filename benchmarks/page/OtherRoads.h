#pragma once

#include "benchmarks/page/ChannelRoads.h"

#include <QWebChannelAbstractTransport>
#include <QWebEngineProfile>
#include <QWebSocketServer>

class QWebSocket;

/// A page on a WebSocket of the host's, on the loopback interface.
class SocketRoad : public Road
{
public:
    void prepare(const QString &text) override;

protected:
    /// @p name is what the page calls the road.
    explicit SocketRoad(const QString &name);

    /// The page has connected; its text messages follow.
    virtual void connected() = 0;

    QWebEngineView *load(const QUrl &url) override;

    QWebSocketServer &server() { return m_server; }
    QWebSocket *socket() const { return m_socket; }
    const QJsonObject &event() const { return m_event; }

private:
    QWebSocketServer m_server{QStringLiteral("bench"), QWebSocketServer::NonSecureMode};
    // Not shared: what clears a profile's cache, as the library does, cuts its connections.
    QWebEngineProfile m_profile;
    QWebEngineView m_view;
    QWebSocket *m_socket = nullptr; // child of the server
    QJsonObject m_event;
};

/// Plain JSON texts over a WebSocket.
class PlainSocketRoad : public SocketRoad
{
public:
    PlainSocketRoad();

    void send() override;

protected:
    void connected() override;

private:
    void send(const QJsonObject &envelope);
};

/// Carries a web channel over a WebSocket.
class SocketTransport : public QWebChannelAbstractTransport
{
    Q_OBJECT

public:
    /// Lives as long as @p socket, its parent.
    explicit SocketTransport(QWebSocket *socket);

    void sendMessage(const QJsonObject &message) override;

private:
    QWebSocket *m_socket;
};

/// A web channel over a WebSocket instead of the web engine's own road.
class SocketChannelRoad : public SocketRoad
{
public:
    SocketChannelRoad();

    void send() override;

protected:
    void connected() override;

private:
    Bridge m_bridge;
    QWebChannel m_channel;
};

/// Scripts that the host runs in the page. There is no way back but the title.
class ScriptRoad : public Road
{
public:
    ScriptRoad();

    void prepare(const QString &text) override;
    void send() override;

protected:
    QWebEngineView *load(const QUrl &url) override;

private:
    QWebEngineView m_view;
    QJsonObject m_event;
};
