#include "simulator/app/CommandLine.h"

#include "simulator/app/ServerOptions.h"

#include <QCommandLineParser>

#include <algorithm>
#include <iterator>

namespace simulator {

namespace {

struct DeviceName
{
    QLatin1String name;
    bool RobotCore::Equipment::*member;
};

const DeviceName deviceNames[] = {
    {QLatin1String("printer"), &RobotCore::Equipment::printer},
    {QLatin1String("dispenser"), &RobotCore::Equipment::dispenser},
    {QLatin1String("passport-scanner"), &RobotCore::Equipment::passportScanner},
    {QLatin1String("document-scanner"), &RobotCore::Equipment::documentScanner},
    {QLatin1String("keyboard"), &RobotCore::Equipment::keyboard},
    {QLatin1String("users"), &RobotCore::Equipment::users},
};

QString allDeviceNames()
{
    QStringList names;
    for (const DeviceName &device : deviceNames)
        names.append(device.name);
    return names.join(QStringLiteral(", "));
}

/// The options, and a parser that knows them.
struct Options
{
    Options();

    QCommandLineParser parser;
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                            QStringLiteral("Show this help.")};
    QCommandLineOption page{
        QStringLiteral("page"),
        QStringLiteral("The page to show: an HTML file, a folder with an index.html, or a URL. "
                       "Default: the page of a reception."),
        QStringLiteral("FILE-OR-FOLDER-OR-URL")};
    QCommandLineOption scenario{
        QStringLiteral("scenario"),
        QStringLiteral("What the robot says and understands: a JSON file. Default: the sample, a "
                       "robot at a reception."),
        QStringLiteral("FILE")};
    QCommandLineOption screenshot{
        QStringLiteral("screenshot"),
        QStringLiteral("Play the demo visit, write a PNG picture of the whole window to FILE and "
                       "end. Gives up after 30 seconds."),
        QStringLiteral("FILE")};
    QCommandLineOption demo{
        QStringLiteral("demo"),
        QStringLiteral("Play a short visit: a person comes, talks to the robot and is asked a "
                       "question.")};
    QCommandLineOption speed{
        QStringLiteral("speed"),
        QStringLiteral("How fast the robot's time runs, from 0.01 to 10000. Default: 1, real "
                       "time."),
        QStringLiteral("FACTOR")};
    QCommandLineOption data{
        QStringLiteral("data"),
        QStringLiteral(
            "Where the robot keeps whom it knows, who it is, and its settings; made when "
            "it is not there. Default: the user's own data and settings folders."),
        QStringLiteral("FOLDER")};
    QCommandLineOption without{
        QStringLiteral("without"),
        QStringLiteral("What the robot does not have, separated by commas: %1.")
            .arg(allDeviceNames()),
        QStringLiteral("NAMES")};
    ServerOptions server;
    QCommandLineOption log{
        QStringLiteral("log"),
        QStringLiteral("Write the library's debug log to the standard error output.")};
};

Options::Options()
{
    parser.setApplicationDescription(QStringLiteral(
        "A robot on the desk: shows a page as the robot's touch screen would, and beside it what\n"
        "the page asks of the robot, buttons for everything that can happen on a robot, and the\n"
        "messages in both directions.\n\n"
        "Exit codes: 0 done, 1 page, scenario, picture or server failed, 2 wrong arguments."));
    parser.addOptions({help, page, scenario, screenshot, demo, speed, data, without, log});
    parser.addOptions(server.all());
}

} // namespace

QString CommandLine::helpText() { return Options().parser.helpText(); }

CommandLine::CommandLine(const QStringList &arguments)
{
    Options options;
    QCommandLineParser &parser = options.parser;
    const auto mistake = [this](const QString &text) {
        m_outcome = Outcome::Mistake;
        m_mistake = text + QStringLiteral("\nSee --help for what the program understands.");
    };

    if (!parser.parse(arguments)) {
        mistake(parser.errorText());
        return;
    }
    if (parser.isSet(options.help)) {
        m_outcome = Outcome::ShowHelp;
        return;
    }
    if (!parser.positionalArguments().isEmpty()) {
        mistake(QStringLiteral("What is \"%1\"? A page is given with --page.")
                    .arg(parser.positionalArguments().constFirst()));
        return;
    }
    for (const QCommandLineOption *option :
         {&options.page, &options.scenario, &options.screenshot, &options.data, &options.without}) {
        if (parser.isSet(*option) && parser.value(*option).isEmpty()) {
            mistake(QStringLiteral("--%1 needs a value that is not empty.")
                        .arg(option->names().constFirst()));
            return;
        }
    }
    if (parser.isSet(options.speed)) {
        const QString text = parser.value(options.speed);
        bool isNumber = false;
        m_speed = text.toDouble(&isNumber);
        // "nan" and "inf" are numbers too, but not between the bounds.
        if (!isNumber || !(m_speed >= 0.01 && m_speed <= 10000)) {
            mistake(QStringLiteral("--speed is \"%1\", but has to be a number from 0.01 to 10000.")
                        .arg(text));
            return;
        }
    }

    const QStringList lists = parser.values(options.without);
    for (const QString &list : lists) {
        const QStringList names = list.split(QLatin1Char(','));
        for (const QString &name : names) {
            if (!takeAway(name.trimmed())) {
                mistake(QStringLiteral("--without does not know \"%1\". It knows %2.")
                            .arg(name.trimmed(), allDeviceNames()));
                return;
            }
        }
    }

    m_serve = parser.isSet(options.server.serve);
    m_showsServedPage = parser.isSet(options.server.window);
    m_server.port = ServerOptions::DefaultPort;
    const QString wrongServer = options.server.read(parser, m_server);
    if (!wrongServer.isEmpty()) {
        mistake(wrongServer);
        return;
    }
    if (m_serve && !m_showsServedPage && parser.isSet(options.screenshot)) {
        mistake(QStringLiteral("--serve shows no page in the window, so there is nothing for "
                               "--screenshot to take a picture of."));
        return;
    }

    m_page = parser.value(options.page);
    m_scenario = parser.value(options.scenario);
    m_screenshot = parser.value(options.screenshot);
    m_data = parser.value(options.data);
    m_demo = parser.isSet(options.demo);
    m_log = parser.isSet(options.log);
}

// False when no device has this name.
bool CommandLine::takeAway(const QString &device)
{
    const auto known =
        std::find_if(std::begin(deviceNames), std::end(deviceNames),
                     [&device](const DeviceName &one) { return one.name == device; });
    if (known == std::end(deviceNames))
        return false;
    m_equipment.*known->member = false;
    return true;
}

} // namespace simulator
