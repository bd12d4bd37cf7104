#pragma once

#include "simulator/server/MessageHistory.h"
#include "simulator/server/RobotActions.h"

#include <QByteArray>
#include <QMap>
#include <QString>

namespace simulator {

/// The robot for a test in another process: what happens to it is asked for by name, and it tells its
/// state and its last messages, in JSON. GUI thread.
class RobotControl
{
public:
    struct Reply
    {
        /// As in HTTP.
        int status = 200;
        /// An object; {"error": text} when something was wrong.
        QByteArray body;
    };

    /// Neither is owned; both outlive this.
    RobotControl(RobotCore *core, panorel::MessageQueueBrocker *brocker);

    /// Where to report each message of the bus.
    MessageHistory *history() { return &m_history; }

    /// @p method is GET for "state" and "messages" (the query's "since" is the number of the first),
    /// POST for an action, with an object or nothing as @p body.
    Reply answer(const QByteArray &method, const QString &name, const QMap<QString, QString> &query,
                 const QByteArray &body);

private:
    Reply tell(const QString &name, const QMap<QString, QString> &query) const;
    Reply perform(const QString &name, const QByteArray &body);

    RobotCore *m_core;
    RobotActions m_actions;
    MessageHistory m_history;
};

} // namespace simulator
