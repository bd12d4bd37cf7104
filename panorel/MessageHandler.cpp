#include "panorel/MessageHandler.h"

namespace panorel {

MessageHandler::~MessageHandler() = default;

bool MessageHandler::isRetired() const { return m_retired; }

} // namespace panorel
