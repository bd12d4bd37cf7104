#pragma once

#include "simulator/core/RobotCore.h"
#include "simulator/core/SimulatedPlugin.h"
#include "tests/soak/Numbers.h"

/// The simulated robot, with numbers on both ends: it counts the requests that reach it, and numbers
/// what it answers and reports.
class SoakRobot : public simulator::SimulatedPlugin
{
    Q_OBJECT

public:
    explicit SoakRobot(QObject *parent = nullptr);

    /// The number for the next message to the page.
    int issue() { return ++m_issued; }
    int issued() const { return m_issued; }

    /// What the page asks for, where it ends: in a call of the host, or at the host's own handler.
    Numbers &requests() const { return m_requests; }

    simulator::SimulatedDialogModule *dialog() const { return m_core->dialog(); }

    /// Answers "/soak/TEXT" with the number of the reply that follows.
    QVariant appParameter(const QString &key, const QVariant &defaultValue) const override;

private:
    SoakRobot(simulator::RobotCore *core, QObject *parent);

    QStringList startScript(const QString &script);

    simulator::RobotCore *const m_core;
    mutable int m_issued = 0;
    mutable Numbers m_requests{QStringLiteral("requests at the robot")};
};
