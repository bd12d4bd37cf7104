#include "panorel/MessageQueueBrocker.h"

namespace panorel {

MessageQueueBrocker::~MessageQueueBrocker() = default;

} // namespace panorel
