#pragma once

#include <QHash>
#include <QObject>
#include <QPair>
#include <QString>

class QTcpSocket;
class QTimer;
class QWebSocket;
class QWebSocketServer;

namespace simulator {

class AccessRules;

/// The browsers that hold a channel to the robot. Each has a web channel of its own to the same
/// objects, so each hears all events, and one that breaks off takes nothing from the others. GUI
/// thread.
class BrowserConnections : public QObject
{
    Q_OBJECT

public:
    /// @p objects are published by their names. Neither they nor @p rules are owned; all outlive this.
    BrowserConnections(const QHash<QString, QObject *> &objects, const AccessRules *rules,
                       QObject *parent = nullptr);

    /// Refuses a browser while another one is connected.
    void setSingle(bool single);

    /// How long a browser may be silent to a ping before its place is free, in milliseconds; 15000
    /// unless set.
    void setPingTime(int milliseconds);
    /// How long a browser may take to open its channel, in milliseconds; 10000 unless set.
    void setHandshakeTime(int milliseconds);

    /// Takes the connection over; its request is still unread.
    void take(QTcpSocket *socket);

    int count() const;

Q_SIGNALS:
    void countChanged(int count);
    /// @p reason tells people why.
    void refused(const QString &reason);

private:
    void onConnected();
    QString obstacle(const QWebSocket *socket) const;
    void open(QWebSocket *socket);
    void watch(QWebSocket *socket);

    using Peer = QPair<QString, quint16>;

    QHash<QString, QObject *> m_objects;
    QHash<Peer, QTimer *> m_limits; // of handshakes
    const AccessRules *m_rules;
    QWebSocketServer *m_server;
    int m_handshakeTime = 10000;
    int m_pingTime = 15000;
    int m_count = 0;
    bool m_isSingle = false;
};

} // namespace simulator
