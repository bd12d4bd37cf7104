#pragma once

#include <QMainWindow>

class QUrl;

namespace simulator {

class MessageLog;
class PageServer;
class RobotCore;
class RobotScreen;

/// The program's window: the robot's screen on the left, the control panel on the right.
class SimulatorWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// @p core is not owned and outlives the window.
    explicit SimulatorWindow(RobotCore *core, QWidget *parent = nullptr);
    ~SimulatorWindow() override;

    void load(const QUrl &url);
    /// Shows where @p server has the page in place of the page. The server is not owned and outlives
    /// the window's use.
    void serve(PageServer *server);

    /// Both live as long as the window.
    RobotScreen *screen() const { return m_screen; }
    MessageLog *log() const { return m_log; }

Q_SIGNALS:
    /// @p ok is false when the page could not be loaded.
    void pageLoaded(bool ok);

private:
    MessageLog *m_log;
    RobotScreen *m_screen;
};

} // namespace simulator
