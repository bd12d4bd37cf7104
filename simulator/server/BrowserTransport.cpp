#include "simulator/server/BrowserTransport.h"

#include <QAbstractSocket>
#include <QJsonDocument>
#include <QJsonObject>
#include <QWebSocket>

namespace simulator {

BrowserTransport::BrowserTransport(QWebSocket *socket, QObject *parent)
    : QWebChannelAbstractTransport(parent)
    , m_socket(socket)
{
    connect(m_socket, &QWebSocket::textMessageReceived, this, &BrowserTransport::receive);
}

void BrowserTransport::setMaximumBacklog(qint64 bytes) { m_maximumBacklog = bytes; }

void BrowserTransport::sendMessage(const QJsonObject &message)
{
    if (m_socket->state() != QAbstractSocket::ConnectedState)
        return;
    if (m_socket->bytesToWrite() > m_maximumBacklog) {
        m_socket->abort();
        return;
    }
    m_socket->sendTextMessage(
        QString::fromUtf8(QJsonDocument(message).toJson(QJsonDocument::Compact)));
}

void BrowserTransport::receive(const QString &text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    if (document.isObject())
        Q_EMIT messageReceived(document.object(), this);
    else
        m_socket->close(QWebSocketProtocol::CloseCodeWrongDatatype,
                        QStringLiteral("Web channel messages are JSON objects."));
}

} // namespace simulator
