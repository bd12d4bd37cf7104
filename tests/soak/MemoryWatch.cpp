#include "tests/soak/MemoryWatch.h"

#include <QByteArray>
#include <QDir>
#include <QFile>

#include <malloc.h>
#include <unistd.h>

#include <algorithm>

namespace {

constexpr double kbOfMb = 1024;
constexpr double bytesOfMb = 1024 * 1024;

/// The sum of the lines "NAME: N kB" in smaps_rollup.
double rollupMb(const QString &process, const QList<QByteArray> &names)
{
    QFile file(QStringLiteral("/proc/%1/smaps_rollup").arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    double kb = 0;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (names.contains(line.left(line.indexOf(':'))))
            kb += line.simplified().split(' ').value(1).toDouble();
    }
    return kb / kbOfMb;
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList children(const QString &parent)
{
    QStringList found;
    const QStringList processes =
        QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[0-9]*")}, QDir::Dirs);
    for (const QString &process : processes) {
        // "pid (name) state parent ..."
        const QByteArray stat = contents(QStringLiteral("/proc/%1/stat").arg(process));
        if (stat.mid(stat.lastIndexOf(')') + 2).split(' ').value(1) == parent.toLatin1())
            found.append(process);
    }
    return found;
}

/// The processes that draw pages: children of the web engine's helpers, which are ours.
QStringList renderers()
{
    QStringList found;
    const QStringList helpers = children(QString::number(getpid()));
    for (const QString &helper : helpers)
        found += children(helper);
    return found;
}

} // namespace

MemoryWatch::Sample MemoryWatch::now()
{
    const QString self = QStringLiteral("self");
    const QList<QByteArray> ownPages{"Private_Clean", "Private_Dirty"};
    Sample sample;
    sample.privateMb = rollupMb(self, ownPages);
    sample.dirtyMb = rollupMb(self, {"Private_Dirty"});
    const struct mallinfo2 heap = mallinfo2();
    sample.inUseMb = static_cast<double>(heap.uordblks + heap.hblkhd) / bytesOfMb;
    sample.heldMb = static_cast<double>(heap.arena + heap.hblkhd) / bytesOfMb;
    const QStringList processes = renderers();
    for (const QString &process : processes)
        sample.rendererMb += rollupMb(process, ownPages);
    return sample;
}

void MemoryWatch::take(int progress)
{
    Sample sample = now();
    sample.progress = progress;
    m_samples.append(sample);
}

double MemoryWatch::lowerQuartile(double Sample::*figure, int from, int to) const
{
    QVector<double> values;
    for (const Sample &sample : m_samples) {
        if (sample.progress >= from && sample.progress <= to)
            values.append(sample.*figure);
    }
    if (values.isEmpty())
        return 0;
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 4);
}

double MemoryWatch::growthPercent(double Sample::*figure) const
{
    const double before = lowerQuartile(figure, 10, 30);
    return before > 0 ? 100 * (lowerQuartile(figure, 80, 100) / before - 1) : 0;
}
