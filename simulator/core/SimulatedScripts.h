#pragma once

#include "simulator/core/Pace.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

namespace simulator {

/// The script engine: it knows scripts by name and runs one at a time. GUI thread.
class SimulatedScripts : public QObject
{
    Q_OBJECT

public:
    explicit SimulatedScripts(const Pace &pace, QObject *parent = nullptr);

    /// Starts @p script. Returns {"started", name}, or {"error", what is wrong and what to do}.
    QStringList start(const QString &script);
    /// Ends the running script; without one, without effect.
    void cancel();

    QStringList names() const;
    void setNames(const QStringList &names);
    /// The running script; empty when none runs.
    QString running() const;

    /// How long a script runs, in milliseconds of the robot's time.
    void setDuration(int milliseconds);

Q_SIGNALS:
    void started(const QString &script);
    /// Follows each started(), whether the script ran to its end or was cancelled.
    void finished(const QString &script);

private:
    Pace m_pace;
    QTimer m_timer;
    QStringList m_names;
    QString m_running;
    int m_duration = 4000;
};

} // namespace simulator
