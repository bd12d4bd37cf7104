#pragma once

#include "simulator/core/RobotCore.h"
#include "simulator/server/PageServer.h"

#include <QString>
#include <QStringList>

namespace simulator {

/// What the program was started with.
class CommandLine
{
public:
    enum class Outcome { Run, ShowHelp, Mistake };

    /// @p arguments begin with the program's name.
    explicit CommandLine(const QStringList &arguments);

    Outcome outcome() const { return m_outcome; }
    /// What is wrong with the arguments; empty when nothing is.
    QString mistake() const { return m_mistake; }
    /// All that the program understands. Needs an application object.
    static QString helpText();

    /// A file, a folder or a URL; empty means the page of a reception.
    QString page() const { return m_page; }
    /// A file; empty means the sample scenario.
    QString scenario() const { return m_scenario; }
    /// Where to write the picture; empty when none is wanted.
    QString screenshot() const { return m_screenshot; }
    /// The folder for the robot's data; empty means the user's own.
    QString data() const { return m_data; }
    /// The devices that the robot has. It names no data folder.
    const RobotCore::Equipment &equipment() const { return m_equipment; }
    /// Whether the page is served to a browser, in place of being shown in the window; then the rest of
    /// what the server is told. It names no folder.
    bool serve() const { return m_serve; }
    /// Whether the window shows the page although it is served.
    bool showsServedPage() const { return m_showsServedPage; }
    const PageServer::Settings &server() const { return m_server; }
    bool demo() const { return m_demo; }
    bool log() const { return m_log; }
    /// How fast the robot's time runs: 1 is real time.
    double speed() const { return m_speed; }

private:
    bool takeAway(const QString &device);

    Outcome m_outcome = Outcome::Run;
    QString m_mistake;
    QString m_page;
    QString m_scenario;
    QString m_screenshot;
    QString m_data;
    RobotCore::Equipment m_equipment;
    PageServer::Settings m_server;
    bool m_serve = false;
    bool m_showsServedPage = false;
    bool m_demo = false;
    bool m_log = false;
    double m_speed = 1.0;
};

} // namespace simulator
