#include "tests/support/CountedHandler.h"

#include <utility>

namespace {

int liveHandlers = 0;

} // namespace

CountedHandler::CountedHandler(Action action, std::function<void()> atDestruction)
    : m_action(std::move(action))
    , m_atDestruction(std::move(atDestruction))
{
    ++liveHandlers;
}

CountedHandler::~CountedHandler()
{
    if (m_atDestruction)
        m_atDestruction();
    --liveHandlers;
}

void CountedHandler::handle(panorel::Message message)
{
    if (m_action)
        m_action(message);
    ++m_received;
}

int CountedHandler::count() { return liveHandlers; }
