#include "tests/soak/Report.h"

#include "tests/soak/Floods.h"
#include "tests/soak/LongDay.h"
#include "tests/soak/MemoryWatch.h"
#include "tests/soak/SoakPage.h"
#include "tests/soak/SoakRobot.h"
#include "tests/soak/StallWatch.h"

#include <QDate>
#include <QFile>
#include <QJsonArray>
#include <QLocale>
#include <QSysInfo>
#include <QThread>

#include <QtWebEngineCore/qtwebenginecoreversion.h>

#include <cmath>

namespace {

double rounded(double value) { return std::round(value * 10) / 10; }
double roundedMb(double value) { return std::round(value * 100) / 100; }

QString firstLine(const QString &path, const QByteArray &begin = {})
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(begin))
            return QString::fromUtf8(line);
    }
    return {};
}

const char *nameOf(int phase)
{
    switch (phase) {
    case StallWatch::Day:
        return "stalls of the day";
    case StallWatch::Loading:
        return "stalls while pages load";
    default:
        return "stalls of the last flood";
    }
}

} // namespace

void Report::addFault(const QString &fault)
{
    if (!fault.isEmpty())
        m_faults.append(fault);
}

void Report::addMachine()
{
    const QString group = QStringLiteral("machine");
    add(group, QStringLiteral("processor"),
        firstLine(QStringLiteral("/proc/cpuinfo"), "model name").section(QStringLiteral(": "), 1));
    add(group, QStringLiteral("processors"), QThread::idealThreadCount());
    add(group, QStringLiteral("load before"),
        firstLine(QStringLiteral("/proc/loadavg")).section(QLatin1Char(' '), 0, 2));
    add(group, QStringLiteral("system"),
        QSysInfo::prettyProductName() + QStringLiteral(", Linux ") + QSysInfo::kernelVersion());
    add(group, QStringLiteral("Qt"), QString::fromLatin1(qVersion()));
    add(group, QStringLiteral("Qt WebEngine"), QStringLiteral(QTWEBENGINECORE_VERSION_STR));
    add(group, QStringLiteral("date"),
        QLocale::c().toString(QDate::currentDate(), QStringLiteral("d MMMM yyyy")));
}

void Report::add(const QString &group, const QString &name, const QJsonValue &value,
                 const QString &unit)
{
    QJsonObject object = m_json.value(group).toObject();
    object.insert(unit.isEmpty() ? name : QStringLiteral("%1, %2").arg(name, unit), value);
    m_json.insert(group, object);
    m_lines.append(QStringLiteral("%1 | %2 | %3 %4")
                       .arg(group, -28)
                       .arg(name, -34)
                       .arg(value.toVariant().toString(), 10)
                       .arg(unit)
                       .trimmed());
}

void Report::limit(const QString &name, double value, double most, const QString &unit)
{
    if (most >= 0 && value > most)
        addFault(QStringLiteral("%1: %2 %3, the limit is %4 %3")
                     .arg(name)
                     .arg(rounded(value))
                     .arg(unit)
                     .arg(most));
}

void Report::addDay(const LongDay &day, const SoakPage &page, const SoakRobot &robot)
{
    const QString group = QStringLiteral("day");
    add(group, QStringLiteral("time without loads"), rounded(day.seconds()), QStringLiteral("s"));
    add(group, QStringLiteral("messages to the page"), robot.issued());
    add(group, QStringLiteral("while no page listened"), page.unheard());
    add(group, QStringLiteral("face reports"), day.faceReports());
    add(group, QStringLiteral("requests from the page"), page.requests().count());
    add(group, QStringLiteral("requests at the robot"), robot.requests().count());
    add(group, QStringLiteral("page loads"), page.loads());
    add(group, QStringLiteral("sets of handlers"), page.handlerSets());
}

void Report::addStalls(const StallWatch &watch, double computingLimitMs, double stallLimitMs)
{
    add(QStringLiteral("GUI thread"), QStringLiteral("computing"),
        rounded(StallWatch::cpuMs() / 1000), QStringLiteral("s"));
    add(QStringLiteral("GUI thread"), QStringLiteral("waiting for a processor"),
        rounded(StallWatch::waitedMs() / 1000), QStringLiteral("s"));
    const QString ms = QStringLiteral("ms");
    add(QStringLiteral("GUI thread"), QStringLiteral("limit of stalls"), stallLimitMs, ms);
    for (int phase = 0; phase < StallWatch::PhaseCount; ++phase) {
        const StallWatch::Stalls &stalls = watch.stalls(static_cast<StallWatch::Phase>(phase));
        const QString group = QString::fromLatin1(nameOf(phase));
        for (std::size_t i = 0; i < stalls.histogram.size(); ++i) {
            const QString name = i < stalls.bounds.size()
                ? QStringLiteral("below %1 ms").arg(stalls.bounds.at(i))
                : QStringLiteral("longer");
            add(group, name, stalls.histogram.at(i));
        }
        add(group, QStringLiteral("longest"), rounded(stalls.longest.ownMs), ms);
        add(group, QStringLiteral("longest: of it, computing"), rounded(stalls.longest.cpuMs), ms);
        add(group, QStringLiteral("longest computing"), rounded(stalls.mostComputing.cpuMs), ms);
        add(group, QStringLiteral("over 50 ms by the machine"), stalls.machineStalls);
        add(group, QStringLiteral("longest by the machine"), rounded(stalls.longestMachineMs),
            QStringLiteral("ms"));
    }
    QJsonArray worst;
    for (const StallWatch::Stall &stall : watch.worst())
        worst.append(QJsonArray{rounded(stall.atSeconds), rounded(stall.gapMs),
                                rounded(stall.ownMs), rounded(stall.cpuMs)});
    m_json.insert(QStringLiteral("day, stalls over 30 ms: at second; between two ticks, own, "
                                 "computing in ms"),
                  worst);
    const StallWatch::Stalls &day = watch.stalls(StallWatch::Day);
    limit(QStringLiteral("the GUI thread computed"), day.mostComputing.cpuMs, computingLimitMs, ms);
    limit(QStringLiteral("the GUI thread stalled"), day.longest.ownMs, stallLimitMs, ms);
}

void Report::addMemory(const MemoryWatch &memory, double limitPercent)
{
    using Sample = MemoryWatch::Sample;
    const QString group = QStringLiteral("memory");
    const auto figure = [&](const QString &name, double Sample::*value) {
        add(group, name + QStringLiteral(" at the end"),
            memory.samples().isEmpty() ? 0 : rounded(memory.samples().last().*value),
            QStringLiteral("MiB"));
        add(group, name + QStringLiteral(" growth"),
            std::round(memory.growthPercent(value) * 100) / 100, QStringLiteral("%"));
    };
    figure(QStringLiteral("private"), &Sample::privateMb);
    figure(QStringLiteral("private, written to"), &Sample::dirtyMb);
    figure(QStringLiteral("heap in use"), &Sample::inUseMb);
    figure(QStringLiteral("heap held"), &Sample::heldMb);
    figure(QStringLiteral("renderers"), &Sample::rendererMb);
    QJsonArray samples;
    for (const Sample &sample : memory.samples()) {
        samples.append(QJsonArray{sample.progress, roundedMb(sample.privateMb),
                                  roundedMb(sample.dirtyMb), roundedMb(sample.inUseMb),
                                  roundedMb(sample.heldMb), roundedMb(sample.rendererMb)});
    }
    m_json.insert(QStringLiteral("memory samples: percent done; private, written to, heap in use, "
                                 "heap held, renderers in MiB"),
                  samples);
    limit(QStringLiteral("private memory grew"), memory.growthPercent(&Sample::dirtyMb),
          limitPercent, QStringLiteral("%"));
}

void Report::addFloods(const Floods &floods, double answerLimitMs)
{
    const QString ms = QStringLiteral("ms");
    for (const Floods::Result &result : floods.results()) {
        if (result.messages > 1)
            add(result.name, QStringLiteral("messages"), result.messages);
        else
            add(result.name, QStringLiteral("characters that came"), result.characters);
        add(result.name, QStringLiteral("until the last had come"), rounded(result.seconds),
            QStringLiteral("s"));
        add(result.name, QStringLiteral("round trip afterwards"), rounded(result.roundTripMs), ms);
        add(result.name, QStringLiteral("painting afterwards"), rounded(result.paintMs), ms);
        add(result.name, QStringLiteral("longest stall"), rounded(result.longestStallMs), ms);
        add(result.name, QStringLiteral("private memory, highest"), rounded(result.highestMb),
            QStringLiteral("MiB"));
        add(result.name, QStringLiteral("private memory, after"), rounded(result.afterMb),
            QStringLiteral("MiB"));
        add(result.name, QStringLiteral("private memory, given back"), rounded(result.trimmedMb),
            QStringLiteral("MiB"));
        // The page may take as long to work a flood off as the flood has lasted.
        const double allowedMs = answerLimitMs < 0 || result.messages <= 1
            ? answerLimitMs
            : qMax(answerLimitMs, result.seconds * 1000);
        limit(result.name + QStringLiteral(": answer afterwards"), result.roundTripMs, allowedMs,
              ms);
        limit(result.name + QStringLiteral(": picture afterwards"), result.paintMs, allowedMs, ms);
    }
}

QString Report::text() const
{
    QStringList lines = m_lines;
    for (const QString &fault : m_faults)
        lines.append(QStringLiteral("BROKEN: ") + fault);
    if (isGood())
        lines.append(QStringLiteral("All limits kept."));
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QJsonObject Report::json() const
{
    QJsonObject object = m_json;
    object.insert(QStringLiteral("broken"), QJsonArray::fromStringList(m_faults));
    return object;
}
