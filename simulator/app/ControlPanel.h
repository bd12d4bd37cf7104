#pragma once

#include <QWidget>

namespace simulator {

class MessageLog;
class RobotCore;
class RobotScreen;

/// Everything beside the robot's screen: what the robot is asked to do, buttons for what happens on
/// it, and the messages.
class ControlPanel : public QWidget
{
    Q_OBJECT

public:
    /// None of them is owned; all outlive the panel.
    ControlPanel(RobotCore *core, RobotScreen *screen, MessageLog *log, QWidget *parent = nullptr);
};

} // namespace simulator
