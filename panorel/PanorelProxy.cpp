#include "panorel/PanorelProxy.h"

#include "panorel/MessageQueueBrocker.h"

#include <QDebug>

namespace panorel {

PanorelProxy::PanorelProxy(MessageQueueBrocker *brocker, QObject *parent)
    : QObject(parent)
    , m_brocker(brocker)
{ }

MessageQueueBrocker *PanorelProxy::brocker() const { return m_brocker; }

void PanorelProxy::detach() { m_brocker = nullptr; }

bool PanorelProxy::sendMessage(QJsonObject data)
{
    if (m_brocker)
        m_brocker->publish(Message::fromJson(data));
    return false;
}

void PanorelProxy::log_json(QString message, QJsonObject data) { qDebug() << message << data; }

void PanorelProxy::log_string(QString message) { qDebug() << message; }

} // namespace panorel
