#pragma once

#include <QWebChannelAbstractTransport>

class QWebSocket;

namespace simulator {

/// Carries a web channel over a WebSocket. GUI thread.
class BrowserTransport : public QWebChannelAbstractTransport
{
    Q_OBJECT

public:
    /// @p socket is not owned and outlives the transport.
    explicit BrowserTransport(QWebSocket *socket, QObject *parent = nullptr);

    /// A browser that takes nothing in, such as one that stands in its debugger, is let go when so
    /// many bytes wait for it.
    void setMaximumBacklog(qint64 bytes);

    void sendMessage(const QJsonObject &message) override;

private:
    void receive(const QString &text);

    QWebSocket *m_socket;
    qint64 m_maximumBacklog = qint64{64} * 1024 * 1024;
};

} // namespace simulator
