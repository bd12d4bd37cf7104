#include "simulator/app/RecordingBrocker.h"

namespace simulator {

void RecordingBrocker::publish(const panorel::Message &message)
{
    Q_EMIT m_reporter.published(message);
    PanorelQueueBrocker::publish(message);
}

} // namespace simulator
