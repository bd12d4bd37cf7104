// A page on the screen, and a topic of the host's own: the page asks, the host answers.
//
// Call it with the path of a page; page.html beside this file is one.

#include "panorel/Constants.h"
#include "panorel/MessageQueueBrocker.h"
#include "panorel/Panorel.h"
#include "simulator/core/RobotCore.h"

#include <QApplication>
#include <QTextStream>
#include <QUrl>

using panorel::Message;
using namespace panorel::constants;

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    if (app.arguments().size() != 2) {
        QTextStream(stderr) << "Usage: example-02-load-a-page PAGE.html\n";
        return 2;
    }

    simulator::RobotCore robot; // stands for the robot core; it outlives the screen
    panorel::Panorel screen;
    screen.defaultHandlers(robot.plugin(), robot.dialog());

    // After defaultHandlers(), which deletes what was subscribed before.
    screen.registerEventHandler(PARAMETERS_GET, [&screen](const Message &) {
        screen.brocker()->publish(Message(PARAMETERS_RESPONSE, {{QStringLiteral("floor"), 3}}));
    });
    screen.registerEventHandler(COOKIE_SET, [](const Message &message) {
        QTextStream(stdout) << "the page says: "
                            << message.attributes().value(QStringLiteral("text")).toString()
                            << '\n';
    });

    screen.load(
        QUrl::fromUserInput(app.arguments().at(1), QStringLiteral("."), QUrl::AssumeLocalFile)
            .toString());
    screen.resize(600, 400);
    screen.show();
    return app.exec();
}
