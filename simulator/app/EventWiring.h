#pragma once

namespace simulator {

class RobotCore;
class RobotScreen;

/// Joins the robot's parts to the screen's event methods: what happens on the robot is reported to
/// the page. The connections end with the screen or the core, whichever goes first.
void wireEvents(RobotCore *core, RobotScreen *screen);

} // namespace simulator
