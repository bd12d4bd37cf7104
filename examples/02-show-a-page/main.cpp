// A page on the screen with a robot behind it.
//
// Call it with the path of a page; page.html beside this file is one.

#include "panorel/Panorel.h"
#include "simulator/core/RobotCore.h"

#include <QApplication>
#include <QTextStream>
#include <QUrl>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    if (app.arguments().size() != 2) {
        QTextStream(stderr) << "Usage: example-02-show-a-page PAGE.html\n";
        return 2;
    }

    simulator::RobotCore robot; // stands for the robot core; it outlives the screen
    panorel::Panorel screen;
    screen.defaultHandlers(robot.plugin(), robot.dialog()); // before the page can ask anything

    screen.load(
        QUrl::fromUserInput(app.arguments().at(1), QStringLiteral("."), QUrl::AssumeLocalFile)
            .toString());
    screen.resize(600, 400);
    screen.show();
    return app.exec();
}
