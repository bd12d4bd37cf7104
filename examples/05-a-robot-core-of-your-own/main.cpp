// A robot core of your own behind the screen, without the simulator.
//
// Call it with the path of a page; page.html beside this file is one. CMakeLists.txt builds the
// folder by itself, from an installed library: copy it to begin.

#include "Robot.h"

#include "panorel/Panorel.h"

#include <QApplication>
#include <QTextStream>
#include <QUrl>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    if (app.arguments().size() != 2) {
        QTextStream(stderr) << "Usage: example-05-a-robot-core-of-your-own PAGE.html\n";
        return 2;
    }

    Robot robot; // both outlive the screen
    Dialog dialog;
    panorel::Panorel screen;
    screen.defaultHandlers(&robot, &dialog);

    // What the page asks of the robot arrives as a signal, what happens is told by an event method.
    QObject::connect(&robot, &PluginInterface::signalLanguage, &screen,
                     [&screen](const QString &language) {
                         screen.robotReplicStart(language == QStringLiteral("fr")
                                                     ? QStringLiteral("Bonjour !")
                                                     : QStringLiteral("Good morning!"));
                         screen.robotReplicFinish();
                     });

    screen.load(
        QUrl::fromUserInput(app.arguments().at(1), QStringLiteral("."), QUrl::AssumeLocalFile)
            .toString());
    screen.resize(600, 400);
    screen.show();
    return app.exec();
}
