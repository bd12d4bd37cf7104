#include "panorel/RobotPaths.h"
#include "simulator/app/CommandLine.h"
#include "simulator/app/DemoVisit.h"
#include "simulator/app/MessageReporter.h"
#include "simulator/app/PageAddress.h"
#include "simulator/app/QuitSignals.h"
#include "simulator/app/RobotScreen.h"
#include "simulator/app/Screenshot.h"
#include "simulator/app/SimulatorWindow.h"
#include "simulator/core/RobotCore.h"
#include "simulator/core/ScenarioReader.h"
#include "simulator/core/SimulatedReplicas.h"
#include "simulator/server/PageServer.h"
#include "simulator/server/RobotControl.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QFont>
#include <QLoggingCategory>
#include <QStandardPaths>
#include <QStyleFactory>
#include <QTimer>

#include <cstdio>
#include <memory>

using namespace simulator;

namespace {

enum ExitCode { Done = 0, Failed = 1, WrongArguments = 2 };

const int ConnectTime = 1500;
const qreal LargestFont = 9.5;

void print(FILE *stream, const QString &text)
{
    std::fprintf(stream, "%s\n", qUtf8Printable(text.trimmed()));
    std::fflush(stream); // whoever started the program reads it while it runs
}

// Before the application is made: a mistake needs no display to be told.
QStringList argumentList(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

// A user's own rules win.
void setUpLog(bool on)
{
    if (on)
        QLoggingCategory::setFilterRules(QStringLiteral("default.debug=true\npanorel.debug=true"));
    else if (qEnvironmentVariableIsEmpty("QT_LOGGING_RULES"))
        QLoggingCategory::setFilterRules(QStringLiteral("panorel.debug=false"));
}

// Where the system's font is large, the panel would leave too little room for the robot's screen.
void setUpFont()
{
    QFont font = QApplication::font();
    font.setPointSizeF(qMin(font.pointSizeF(), LargestFont));
    QApplication::setFont(font);
}

QString dataFolder(const CommandLine &commandLine)
{
    if (!commandLine.data().isEmpty())
        return commandLine.data();
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

QString settingsFolder(const CommandLine &commandLine)
{
    if (!commandLine.data().isEmpty())
        return commandLine.data();
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
}

void tellProblems(const RobotCore &core)
{
    for (const QString &problem : core.problems())
        print(stderr, problem + QStringLiteral("\nAnother folder is given with --data."));
}

/// What a page prints goes by the home folder of the robot's user, which a desk may not have.
void makeRobotHome()
{
    const QString home = QFileInfo(panorel::paths::printPicture()).path();
    if (!QDir().mkpath(home) || !QFileInfo(home).isWritable())
        print(stderr,
              QStringLiteral("Nothing can be printed: the robot's home folder %1 cannot be written "
                             "to. Make it yours, or build with another PANOREL_ROBOT_HOME.")
                  .arg(home));
}

/// Lets browsers show the page. Returns null when it cannot be served.
std::unique_ptr<PageServer> serve(const CommandLine &commandLine, const PageAddress &page,
                                  SimulatorWindow *window, RobotControl *control)
{
    PageServer::Settings settings = commandLine.server();
    settings.folder = page.folder();
    settings.page = page.fileName();
    auto server = std::make_unique<PageServer>(settings, window->screen()->pageObjects(), control);
    if (!server->listen()) {
        print(stderr, server->problem());
        return nullptr;
    }
    if (!settings.address.isLoopback())
        print(stderr,
              QStringLiteral("Warning: other machines can reach this robot at %1. The token "
                             "keeps strangers out, but whoever listens on the network can "
                             "read it.")
                  .arg(settings.address.toString()));
    QObject::connect(server.get(), &PageServer::refused, server.get(),
                     [](const QString &reason) { print(stderr, reason); });
    print(stdout, QStringLiteral("Serving ") + server->address().toString(QUrl::FullyEncoded));
    return server;
}

/// Starts the visit when the page has had time to connect to the robot.
void playVisit(DemoVisit *visit, SimulatorWindow *window)
{
    QObject::connect(window, &SimulatorWindow::pageLoaded, visit,
                     [visit] { QTimer::singleShot(ConnectTime, visit, &DemoVisit::start); });
}

} // namespace

int main(int argc, char *argv[])
{
    // Mistakes and help need no display.
    const CommandLine commandLine(argumentList(argc, argv));
    if (commandLine.outcome() == CommandLine::Outcome::Mistake) {
        print(stderr, commandLine.mistake());
        return WrongArguments;
    }
    if (commandLine.outcome() == CommandLine::Outcome::ShowHelp) {
        const QCoreApplication application(argc, argv);
        print(stdout, CommandLine::helpText());
        return Done;
    }

    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("panorel-simulator"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    setUpFont();
    setUpLog(commandLine.log());
    const QuitSignals quitSignals;

    const PageAddress page(commandLine.page());
    if (!page.isFound()) {
        print(stderr, page.error());
        return Failed;
    }
    if (commandLine.serve() && !page.isFile()) {
        print(stderr,
              QStringLiteral("--serve serves a file or a folder; %1 has a server already.")
                  .arg(page.url().toDisplayString()));
        return Failed;
    }
    const ScenarioReader scenario(commandLine.scenario());
    if (!scenario.isRead()) {
        print(stderr, scenario.error());
        return Failed;
    }
    const bool takePicture = !commandLine.screenshot().isEmpty();
    const QString obstacle =
        takePicture ? Screenshot::obstacle(commandLine.screenshot()) : QString();
    if (!obstacle.isEmpty()) {
        print(stderr, obstacle);
        return Failed;
    }

    // The core outlives the window: the screen's handlers use it until they are gone.
    RobotCore::Equipment equipment = commandLine.equipment();
    equipment.dataFolder = dataFolder(commandLine);
    equipment.settingsFolder = settingsFolder(commandLine);
    RobotCore core(equipment);
    tellProblems(core);
    makeRobotHome();
    // The pace is a handle that all of the core share.
    core.pace().setSpeed(commandLine.speed()); // clazy:exclude=writing-to-temporary
    core.replicas()->setScenario(scenario.scenario());
    SimulatorWindow window(&core);
    DemoVisit visit(&core, window.screen());
    Screenshot screenshot(&window, commandLine.screenshot());

    RobotControl control(&core, window.screen()->brocker());
    QObject::connect(window.screen()->reporter(), &MessageReporter::published, control.history(),
                     &MessageHistory::add);
    std::unique_ptr<PageServer> server;
    if (commandLine.serve()) {
        server = serve(commandLine, page, &window, &control);
        if (!server)
            return Failed;
    }
    if (commandLine.serve() && !commandLine.showsServedPage()) {
        window.serve(server.get());
        if (commandLine.demo())
            QObject::connect(server.get(), &PageServer::browsersChanged, &visit,
                             [&visit](int count) {
                                 if (count > 0)
                                     QTimer::singleShot(ConnectTime, &visit, &DemoVisit::start);
                             });
        window.show();
        return QApplication::exec();
    }

    if (commandLine.demo() || takePicture)
        playVisit(&visit, &window);
    if (takePicture) {
        QObject::connect(&visit, &DemoVisit::finished, &screenshot, &Screenshot::setVisitOver);
        QObject::connect(&screenshot, &Screenshot::finished, &application,
                         [](const QString &error) {
                             if (!error.isEmpty())
                                 print(stderr, error);
                             QCoreApplication::exit(error.isEmpty() ? Done : Failed);
                         });
        screenshot.start();
    } else {
        QObject::connect(&window, &SimulatorWindow::pageLoaded, &application, [&page](bool ok) {
            if (!ok)
                print(stderr,
                      QStringLiteral("The page %1 could not be loaded: check the address.")
                          .arg(page.url().toDisplayString()));
        });
    }
    window.load(page.url());
    window.show();
    return QApplication::exec();
}
