#include "simulator/core/SimulatedScripts.h"

namespace simulator {

SimulatedScripts::SimulatedScripts(const Pace &pace, QObject *parent)
    : QObject(parent)
    , m_pace(pace)
    , m_names({QStringLiteral("welcome"), QStringLiteral("tour"), QStringLiteral("dance"),
               QStringLiteral("farewell")})
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &SimulatedScripts::cancel);
}

QStringList SimulatedScripts::start(const QString &script)
{
    const QString error = QStringLiteral("error");
    if (!m_names.contains(script)) {
        return {error,
                QStringLiteral("There is no script \"%1\". Known scripts: %2.")
                    .arg(script, m_names.join(QStringLiteral(", ")))};
    }
    if (!m_running.isEmpty()) {
        return {error,
                QStringLiteral("The script \"%1\" is running. Stop it, or wait for its end.")
                    .arg(m_running)};
    }
    m_running = script;
    m_timer.start(m_pace.milliseconds(m_duration));
    Q_EMIT started(script);
    return {QStringLiteral("started"), script};
}

void SimulatedScripts::cancel()
{
    if (m_running.isEmpty())
        return;
    m_timer.stop();
    const QString script = m_running;
    m_running.clear();
    Q_EMIT finished(script);
}

QStringList SimulatedScripts::names() const { return m_names; }

void SimulatedScripts::setNames(const QStringList &names) { m_names = names; }

QString SimulatedScripts::running() const { return m_running; }

void SimulatedScripts::setDuration(int milliseconds) { m_duration = milliseconds; }

} // namespace simulator
