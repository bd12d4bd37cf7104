#pragma once

#include "panorel/Message.h"

#include <QObject>

namespace simulator {

/// Tells what a RecordingBrocker delivers.
class MessageReporter : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    /// Comes before the message's handlers run.
    void published(const panorel::Message &message);
};

} // namespace simulator
