#pragma once

#include "simulator/server/ActionFunctions.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>

namespace simulator {

/// What can happen before a robot and to its devices, by name, as a test wants it to happen:
/// docs/serve.md lists the actions with their values. GUI thread.
class RobotActions
{
public:
    struct Outcome
    {
        /// What was wrong and what to do; empty when the action was performed.
        QString mistake;
        QJsonObject result;
    };

    /// What the target points to is not owned and outlives this.
    explicit RobotActions(const ActionTarget &target);

    static QStringList names();
    static bool isKnown(const QString &name);

    /// Performs all of the action, or nothing when a value is wrong.
    Outcome perform(const QString &name, const QJsonObject &values) const;

private:
    ActionTarget m_target;
};

} // namespace simulator
