#pragma once

#include "panorel/Export.h"

#include <QJsonObject>
#include <QObject>
#include <QString>

namespace panorel {

class MessageQueueBrocker;

/// The object that the page reaches through the web channel, under the name "_karvel_internal".
/// Its meta-object is the page's interface: one signal and three slots, in this order.
class PANOREL_EXPORT PanorelProxy : public QObject
{
    Q_OBJECT

public:
    /// @p brocker is not owned.
    explicit PanorelProxy(MessageQueueBrocker *brocker, QObject *parent = nullptr);

    /// Where the page's messages are published; null once the bus has gone.
    MessageQueueBrocker *brocker() const;

    /// Called when the bus goes: from then on the page's messages are dropped.
    void detach();

Q_SIGNALS:
    /// Carries one outgoing envelope to the page.
    void message(QJsonObject message);

public Q_SLOTS:
    /// Publishes the page's envelope and returns after all its handlers have run. Always returns
    /// false: the value carries no meaning.
    bool sendMessage(QJsonObject data);

    /// Writes text and object to the default logging category, at debug level.
    void log_json(QString message, QJsonObject data);

    /// Writes the text to the default logging category, at debug level.
    void log_string(QString message);

private:
    MessageQueueBrocker *m_brocker;
};

} // namespace panorel
