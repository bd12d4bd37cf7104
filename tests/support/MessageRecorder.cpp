#include "tests/support/MessageRecorder.h"

#include "panorel/MessageQueueBrocker.h"

#include <QtTest>

using panorel::Message;

void MessageRecorder::watch(panorel::MessageQueueBrocker *brocker, const QStringList &topics)
{
    for (const QString &topic : topics)
        brocker->subscribe(topic, [this](const Message &message) { m_messages.append(message); });
}

int MessageRecorder::count() const { return m_messages.count(); }

bool MessageRecorder::isEmpty() const { return m_messages.isEmpty(); }

Message MessageRecorder::take()
{
    if (m_messages.isEmpty()) {
        QTest::qFail("no message was published", __FILE__, __LINE__);
        return Message(QString());
    }
    return m_messages.takeFirst();
}

QStringList MessageRecorder::topics() const
{
    QStringList list;
    for (const Message &message : m_messages)
        list.append(message.type());
    return list;
}

void MessageRecorder::clear() { m_messages.clear(); }
