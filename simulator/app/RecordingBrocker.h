#pragma once

#include "panorel/PanorelQueueBrocker.h"
#include "simulator/app/MessageReporter.h"

namespace simulator {

/// A bus that reports each message before it delivers it, so that a request comes before the
/// replies that its handlers publish. GUI thread.
class RecordingBrocker : public panorel::PanorelQueueBrocker
{
public:
    void publish(const panorel::Message &message) override;

    /// Lives as long as the bus.
    MessageReporter *reporter() { return &m_reporter; }

private:
    MessageReporter m_reporter;
};

} // namespace simulator
