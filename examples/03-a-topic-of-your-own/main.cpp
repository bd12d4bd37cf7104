// A topic of the host's own: the page asks for the opening hours, the host answers.
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
        QTextStream(stderr) << "Usage: example-03-a-topic-of-your-own PAGE.html\n";
        return 2;
    }

    simulator::RobotCore robot;
    panorel::Panorel screen;
    screen.defaultHandlers(robot.plugin(), robot.dialog());

    // After defaultHandlers(), which deletes what was subscribed before.
    screen.registerEventHandler(
        QStringLiteral("hours.get"), [&screen](const panorel::Message &request) {
            const QString day = request.attributes().value(QStringLiteral("day")).toString();
            const bool open = day != QStringLiteral("sunday");
            // A topic of one's own does not reach the page. This event carries what it likes.
            screen.customEvent({{QStringLiteral("event"), QStringLiteral("hours")},
                                {QStringLiteral("day"), day},
                                {QStringLiteral("open"), open}});
        });

    screen.load(
        QUrl::fromUserInput(app.arguments().at(1), QStringLiteral("."), QUrl::AssumeLocalFile)
            .toString());
    screen.resize(600, 400);
    screen.show();
    return app.exec();
}
