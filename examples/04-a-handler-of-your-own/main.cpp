// A handler of the host's own: a class that keeps something between the page's requests.
//
// Call it with the path of a page; page.html beside this file is one.

#include "VisitorHandler.h"

#include "panorel/Panorel.h"
#include "simulator/core/RobotCore.h"

#include <QApplication>
#include <QTextStream>
#include <QUrl>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    if (app.arguments().size() != 2) {
        QTextStream(stderr) << "Usage: example-04-a-handler-of-your-own PAGE.html\n";
        return 2;
    }

    simulator::RobotCore robot;
    panorel::Panorel screen;
    screen.defaultHandlers(robot.plugin(), robot.dialog());

    auto *const visitors = new VisitorHandler(&screen);
    screen.registerEventHandler(visitors->topic(), visitors); // the screen's bus owns it now

    screen.load(
        QUrl::fromUserInput(app.arguments().at(1), QStringLiteral("."), QUrl::AssumeLocalFile)
            .toString());
    screen.resize(600, 400);
    screen.show();
    return app.exec();
}
