// A long day in front of a real page: see docs/reliability.md. Run by scripts/soak.sh, and as a test
// with smaller numbers.

#include "tests/soak/FaultyBrocker.h"
#include "tests/soak/Floods.h"
#include "tests/soak/LongDay.h"
#include "tests/soak/MemoryWatch.h"
#include "tests/soak/Report.h"
#include "tests/soak/SoakPage.h"
#include "tests/soak/SoakRobot.h"
#include "tests/soak/StallWatch.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QJsonDocument>
#include <QLoggingCategory>

#include <cstdio>

namespace {

struct Option
{
    const char *name;
    const char *description;
    const char *value;
};

constexpr Option options[] = {
    {"events", "Events to the page, and as many requests from it.", "1000000"},
    {"flood-seconds", "How long each flood lasts; 0 leaves them out.", "60"},
    {"loads", "So often the page is loaded.", "25"},
    {"large", "Characters of the large messages, separated by commas.", "60000000,100000000"},
    {"computing-limit", "Longest computing of the GUI thread in milliseconds; -1: any.", "50"},
    {"stall-limit",
     "Longest stall of the GUI thread, waiting included; -1: any; default: 50, or 250 on a busy "
     "machine.",
     ""},
    {"growth-limit", "Growth of private memory in percent; -1: any.", "2"},
    {"answer-limit",
     "Longest wait for an answer or a picture in milliseconds, after a long flood as long as "
     "the flood; -1: any.",
     "30000"},
    {"fault", "A fault of the bus that the soak has to notice.", ""},
    {"json", "Writes the figures to this file, too.", ""},
};

/// On a machine without a processor to spare, a lock can be held by a thread that waits for one: the C
/// library's on its heap was, for up to 60 ms.
double stallLimit(const QCommandLineParser &parser)
{
    const QString limit = parser.value(QStringLiteral("stall-limit"));
    if (!limit.isEmpty())
        return limit.toInt();
    const bool isBusy = StallWatch::waitedMs() > 0.2 * StallWatch::cpuMs();
    return isBusy ? 250 : 50;
}

Report soak(const QCommandLineParser &parser)
{
    const auto number = [&parser](const char *name) {
        return parser.value(QString::fromLatin1(name)).toInt();
    };
    Report report;
    report.addMachine();
    SoakRobot robot;
    StallWatch stalls;
    MemoryWatch memory;
    SoakPage page(&robot, parser.value(QStringLiteral("fault")));

    LongDay day(number("events"), number("loads"), &page, &stalls, &memory);
    QString fault = day.run();
    report.addDay(day, page, robot);

    Floods floods(&page, &robot, &stalls);
    const QStringList sizes = parser.value(QStringLiteral("large")).split(QLatin1Char(','));
    for (const QString &size : sizes) {
        if (fault.isEmpty() && size.toInt() > 0)
            fault = floods.largeFromPage(size.toInt());
        if (fault.isEmpty() && size.toInt() > 0)
            fault = floods.largeToPage(size.toInt());
    }
    if (fault.isEmpty() && number("flood-seconds") > 0)
        fault = floods.floodFromPage(number("flood-seconds"));
    if (fault.isEmpty() && number("flood-seconds") > 0)
        fault = floods.floodToPage(number("flood-seconds"));

    report.addStalls(stalls, number("computing-limit"), stallLimit(parser));
    report.addMemory(memory, number("growth-limit"));
    report.addFloods(floods, number("answer-limit"));
    report.addFault(fault);
    return report;
}

} // namespace

int main(int argc, char **argv)
{
    QLoggingCategory::setFilterRules(QStringLiteral("panorel.debug=false"));
    const QApplication app(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    for (const Option &option : options) {
        parser.addOption({QString::fromLatin1(option.name), QString::fromLatin1(option.description),
                          QStringLiteral("value"), QString::fromLatin1(option.value)});
    }
    parser.process(app);
    const QString fault = parser.value(QStringLiteral("fault"));
    if (!FaultyBrocker::faults().contains(fault)) {
        std::fprintf(stderr, "no such fault; there are:%s\n",
                     qPrintable(FaultyBrocker::faults().join(QLatin1Char(' '))));
        return 2;
    }

    QFile json(parser.value(QStringLiteral("json")));
    if (!json.fileName().isEmpty() && !json.open(QIODevice::WriteOnly)) {
        std::fprintf(stderr, "cannot write %s: %s\n", qPrintable(json.fileName()),
                     qPrintable(json.errorString()));
        return 2;
    }
    const Report report = soak(parser);
    std::fputs(qPrintable(report.text()), stdout);
    if (json.isOpen())
        json.write(QJsonDocument(report.json()).toJson());
    return report.isGood() ? 0 : 1;
}
