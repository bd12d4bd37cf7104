#pragma once

#include "panorel/Message.h"

#include <QJsonObject>
#include <QObject>
#include <QVector>

namespace simulator {

/// The last messages on the bus, for a test that asks what a page has sent. Without reports of faces.
/// GUI thread.
class MessageHistory : public QObject
{
    Q_OBJECT

public:
    /// How many messages are kept.
    static const int Capacity;
    /// Of a message with more characters of JSON, topic and direction alone are kept, with "cut".
    static const int LongestMessage;

    using QObject::QObject;

    void add(const panorel::Message &message);

    /// {"next": number, "messages": [{"number", "direction", "topic", "attributes"}]}: what is kept of
    /// the messages from @p number on, which count from 0; "next" is the number of the one to come.
    QJsonObject since(qint64 number) const;

private:
    QVector<QJsonObject> m_messages;
    qint64 m_next = 0;
};

} // namespace simulator
