#pragma once

#include "host/IInteractionService.h"

namespace simulator {

/// Starts and ends interactions with the user. GUI thread.
class SimulatedInteractionService : public IInteractionService
{
    Q_OBJECT

public:
    explicit SimulatedInteractionService(QObject *parent = nullptr);

    /// Starts because it was requested.
    void start() override;
    void stop() override;

    /// Starts for @p reason. An interaction that runs already goes on, unreported.
    void startFor(Interaction::Reason reason);
    bool isRunning() const;

private:
    bool m_running = false;
};

} // namespace simulator
