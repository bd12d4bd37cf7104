#pragma once

#include "panorel/Message.h"

#include <QList>
#include <QStringList>
#include <QVariantMap>

namespace panorel {
class MessageQueueBrocker;
}

/// Keeps every message of the topics that it watches, until a test takes it.
class MessageRecorder
{
public:
    /// Watches @p topics on @p brocker, until the broker is cleared.
    void watch(panorel::MessageQueueBrocker *brocker, const QStringList &topics);

    int count() const;
    bool isEmpty() const;

    /// The oldest message; fails the test, and gives an empty one, when there is none.
    panorel::Message take();

    /// All topics, in the order of arrival.
    QStringList topics() const;
    void clear();

private:
    QList<panorel::Message> m_messages;
};
