#include "panorel/MessageHandler.h"

namespace panorel {

MessageHandler::~MessageHandler() = default;

} // namespace panorel
