#include "tests/soak/Floods.h"

#include "tests/soak/MemoryWatch.h"
#include "tests/soak/SoakPage.h"
#include "tests/soak/SoakRobot.h"
#include "tests/soak/StallWatch.h"
#include "tests/support/Noted.h"

#include <QElapsedTimer>
#include <QTimer>

#include <malloc.h>

namespace {

constexpr int limitMs = 120000;
// A message's JSON has to fit into 2^27 bytes of Qt's, which keep two for a character.
constexpr int mostCharacters = 67000000;
constexpr int sliceMs = 10; // a host that never turns its event loop stalls its own window

} // namespace

Floods::Floods(SoakPage *page, SoakRobot *robot, StallWatch *stalls)
    : m_page(page)
    , m_robot(robot)
    , m_stalls(stalls)
{ }

template <typename Work>
QString Floods::measure(const QString &name, Work work)
{
    Result result;
    result.name = name;
    m_stalls->setPhase(StallWatch::Flood);
    m_stalls->forget(StallWatch::Flood);
    QTimer memory;
    connect(&memory, &QTimer::timeout, this,
            [&result] { result.highestMb = qMax(result.highestMb, MemoryWatch::now().privateMb); });
    memory.start(1000);

    QElapsedTimer timer;
    timer.start();
    QString fault = work(result);
    result.seconds = static_cast<double>(timer.elapsed()) / 1000;
    result.roundTripMs = m_page->roundTrip(limitMs);
    result.paintMs = m_page->paint(limitMs);
    m_stalls->setPhase(StallWatch::Loading);
    result.longestStallMs = m_stalls->stalls(StallWatch::Flood).longest.ownMs;
    result.afterMb = MemoryWatch::now().privateMb;
    malloc_trim(0);
    result.trimmedMb = MemoryWatch::now().privateMb;
    result.highestMb = qMax(result.highestMb, result.afterMb);
    if (fault.isEmpty())
        fault = m_page->check();
    if (fault.isEmpty() && result.roundTripMs < 0)
        fault = QStringLiteral("no answer afterwards");
    if (fault.isEmpty() && result.paintMs < 0)
        fault = QStringLiteral("no picture afterwards");
    m_results.append(result);
    return fault.isEmpty() ? fault : QStringLiteral("%1: %2").arg(name, fault);
}

QString Floods::largeFromPage(int characters)
{
    return measure(
        QStringLiteral("%1 million from the page").arg(characters / 1e6), [&](Result &result) {
            const auto connection = connect(
                m_page, &SoakPage::said, this, [&](const QString &name, const QVariantMap &said) {
                    if (name == QLatin1String("large"))
                        result.characters = said.value(QStringLiteral("text")).toString().size();
                });
            m_page->command(QStringLiteral("send"), {{QStringLiteral("characters"), characters}});
            return large(result, characters, connection);
        });
}

QString Floods::largeToPage(int characters)
{
    return measure(
        QStringLiteral("%1 million to the page").arg(characters / 1e6), [&](Result &result) {
            const auto connection = connect(
                m_page, &SoakPage::said, this, [&](const QString &name, const QVariantMap &said) {
                    if (name == QLatin1String("taken"))
                        result.characters = said.value(QStringLiteral("length")).toInt();
                });
            m_page->command(QStringLiteral("take"),
                            {{QStringLiteral("text"), QString(characters, QLatin1Char('x'))}});
            return large(result, characters, connection);
        });
}

/// The page answers in order: once it has, the message has come, or never will.
QString Floods::large(Result &result, int characters, const QMetaObject::Connection &connection)
{
    const bool isAlive = m_page->roundTrip(limitMs) >= 0;
    disconnect(connection);
    result.messages = 1;
    if (!isAlive)
        return QStringLiteral("the page answers no more");
    if (result.characters == characters || characters > mostCharacters)
        return {};
    return QStringLiteral("%1 of %2 characters came").arg(result.characters).arg(characters);
}

QString Floods::floodFromPage(int seconds)
{
    return measure(QStringLiteral("flood from the page"), [&](Result &result) {
        Noted<bool> hasEnded;
        connect(m_page, &SoakPage::said, &hasEnded,
                [&](const QString &name, const QVariantMap &said) {
                    if (name != QLatin1String("flooded"))
                        return;
                    result.messages = said.value(QStringLiteral("count")).toInt();
                    hasEnded.value = true;
                });
        m_page->command(QStringLiteral("flood"), {{QStringLiteral("ms"), seconds * 1000}});
        SoakPage::waitFor([&] { return hasEnded.value; }, seconds * 1000 + limitMs);
        return hasEnded.value ? QString() : QStringLiteral("it did not end in time");
    });
}

QString Floods::floodToPage(int seconds)
{
    return measure(QStringLiteral("flood to the page"), [&](Result &result) {
        const int first = m_robot->issued();
        QElapsedTimer flood;
        flood.start();
        QTimer slices;
        connect(&slices, &QTimer::timeout, this, [this] {
            QElapsedTimer slice;
            slice.start();
            while (slice.elapsed() < sliceMs)
                m_page->publishEvent();
        });
        slices.start(0);
        SoakPage::waitFor([&] { return flood.elapsed() >= qint64{seconds} * 1000; }, limitMs);
        slices.stop();
        result.messages = m_robot->issued() - first;
        return QString();
    });
}
