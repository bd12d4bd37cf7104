#include "panorel/FunctionalHandler.h"

#include <utility>

namespace panorel {

FunctionalHandler::FunctionalHandler(std::function<void(Message)> function)
    : m_function(std::move(function))
{ }

void FunctionalHandler::handle(Message message)
{
    if (m_function)
        m_function(std::move(message));
}

} // namespace panorel
