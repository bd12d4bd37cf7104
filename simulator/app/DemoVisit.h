#pragma once

#include <QList>
#include <QObject>
#include <QTimer>

#include <functional>

namespace simulator {

class RobotCore;
class RobotScreen;

/// A short visit, played by itself: a person comes, talks to the robot and is asked a question that
/// stays open. Runs at the robot's pace.
class DemoVisit : public QObject
{
    Q_OBJECT

public:
    /// Neither is owned; both outlive the visit.
    DemoVisit(RobotCore *core, RobotScreen *screen, QObject *parent = nullptr);

    /// Plays the visit from its beginning; one that is under way goes on instead.
    void start();

Q_SIGNALS:
    void finished();

private:
    struct Step
    {
        int delay; // after the step before, in milliseconds of the robot's time
        std::function<void()> act;
    };

    QList<Step> steps() const;
    void waitForNext();
    void onTimeout();

    RobotCore *m_core;
    RobotScreen *m_screen;
    QTimer m_timer;
    QList<Step> m_left;
};

} // namespace simulator
