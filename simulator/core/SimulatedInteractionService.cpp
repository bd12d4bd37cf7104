#include "simulator/core/SimulatedInteractionService.h"

namespace simulator {

SimulatedInteractionService::SimulatedInteractionService(QObject *parent)
    : IInteractionService(parent)
{ }

void SimulatedInteractionService::start() { startFor(Interaction::Requested); }

void SimulatedInteractionService::stop()
{
    if (!m_running)
        return;
    m_running = false;
    Q_EMIT finished();
}

void SimulatedInteractionService::startFor(Interaction::Reason reason)
{
    if (m_running)
        return;
    m_running = true;
    Q_EMIT started(reason);
}

bool SimulatedInteractionService::isRunning() const { return m_running; }

} // namespace simulator
