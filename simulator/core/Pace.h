#pragma once

#include <atomic>
#include <memory>

namespace simulator {

/// How fast the robot's time runs. Copies share one speed, so that whoever holds a copy steers all
/// parts that were made with it. May be used on any thread.
class Pace
{
public:
    /// Real time: speed 1.
    Pace();

    /// 2 is twice as fast, 0.5 half as fast. Held within 0.01 and 10000.
    void setSpeed(double speed);
    double speed() const;

    /// How long @p nominal milliseconds of the robot's time really take. Never negative.
    int milliseconds(int nominal) const;

private:
    std::shared_ptr<std::atomic<double>> m_speed;
};

} // namespace simulator
