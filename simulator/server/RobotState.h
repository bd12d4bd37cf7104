#pragma once

#include <QJsonObject>

namespace simulator {

class RobotCore;

/// What the robot is doing and what its devices hold, for a test that looks at the robot itself. A
/// device that the robot does not have is null; enumerations are their numbers, as messages have
/// them.
QJsonObject robotState(const RobotCore *core);

} // namespace simulator
