// A host application from outside, with a robot core of its own: the page sets the robot's language,
// the robot hears a visitor, the page tells the host what it was told.

#include "Robot.h"

#include <panorel/Constants.h>
#include <panorel/Panorel.h>

#include <QApplication>
#include <QTimer>
#include <QUrl>

#include <cstdio>

namespace {

constexpr int timeoutMs = 60000;

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "Usage: outside-host PAGE.html\n");
        return 2;
    }
    Robot robot;
    Dialog dialog;
    panorel::Panorel screen;
    screen.defaultHandlers(&robot, &dialog);

    QObject::connect(&robot, &PluginInterface::signalLanguage, &screen,
                     [&screen](const QString &language) {
                         screen.userSaid(language + QStringLiteral(": bonjour"), true);
                     });
    screen.registerEventHandler(QStringLiteral("outside.heard"), [](const panorel::Message &heard) {
        const QString text = heard.attributes().value(QStringLiteral("text")).toString();
        std::printf("the page heard \"%s\"\n", qUtf8Printable(text));
        QCoreApplication::exit(text == QStringLiteral("fr: bonjour") ? 0 : 1);
    });
    QTimer::singleShot(timeoutMs, &app, [] {
        std::fprintf(stderr, "the page said nothing in time\n");
        QCoreApplication::exit(1);
    });

    screen.load(QUrl::fromLocalFile(QString::fromLocal8Bit(argv[1])).toString());
    screen.resize(400, 300);
    screen.show();
    return QApplication::exec();
}
