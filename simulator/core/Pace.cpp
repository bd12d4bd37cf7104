#include "simulator/core/Pace.h"

#include <QtGlobal>

namespace simulator {

Pace::Pace()
    : m_speed(std::make_shared<std::atomic<double>>(1.0))
{ }

void Pace::setSpeed(double speed) { m_speed->store(qBound(0.01, speed, 10000.0)); }

double Pace::speed() const { return m_speed->load(); }

int Pace::milliseconds(int nominal) const
{
    // An hour is the longest that any part waits; it also keeps the result within an int.
    return qRound(qBound(0.0, nominal / m_speed->load(), 3600000.0));
}

} // namespace simulator
