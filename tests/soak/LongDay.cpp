#include "tests/soak/LongDay.h"

#include "tests/soak/MemoryWatch.h"
#include "tests/soak/SoakPage.h"
#include "tests/soak/StallWatch.h"

namespace {

constexpr int stopsPerLoad = 4;
constexpr int facesMs = 40;
constexpr int eventsMs = 1;
constexpr int publishMs = 2; // at most, before the event loop turns
constexpr int window = 256; // messages on their way to the page; what is above waits in the host
constexpr int workLimitMs = 120000;

} // namespace

LongDay::LongDay(int messages, int loads, SoakPage *page, StallWatch *stalls, MemoryWatch *memory)
    : m_messages(messages)
    , m_stops(loads * stopsPerLoad)
    , m_page(page)
    , m_stalls(stalls)
    , m_memory(memory)
{
    connect(&m_events, &QTimer::timeout, this, &LongDay::publish);
    connect(&m_faces, &QTimer::timeout, this, [this] {
        m_page->publishFaces();
        ++m_faceReports;
    });
    m_faces.setTimerType(Qt::PreciseTimer);
}

QString LongDay::run()
{
    m_faces.start(facesMs); // from now on, whether a page is there or not
    for (int stop = 0; stop < m_stops; ++stop) {
        if (stop % stopsPerLoad == 0 && !m_page->open())
            return QStringLiteral("the page did not load in time");
        m_stalls->setPhase(StallWatch::Day);
        QElapsedTimer timer;
        timer.start();
        QString fault = work(stop + 1);
        m_seconds += static_cast<double>(timer.elapsed()) / 1000;
        m_stalls->setPhase(StallWatch::Loading);
        if (!fault.isEmpty())
            return fault;
        m_memory->take((stop + 1) * 100 / m_stops);
    }
    m_faces.stop();
    return {};
}

QString LongDay::work(int stop)
{
    m_until = static_cast<int>(qint64{m_messages} * stop / m_stops);
    m_page->requestUntil(m_until);
    m_events.start(eventsMs);
    const auto isDone = [this] {
        return m_published == m_until && m_page->requests().last() >= m_until;
    };
    const bool inTime = SoakPage::waitFor(isDone, workLimitMs);
    m_events.stop();
    QString fault = m_page->check();
    if (!fault.isEmpty() || inTime)
        return fault;
    return QStringLiteral("only %1 of %2 events and %3 requests in time")
        .arg(m_published)
        .arg(m_until)
        .arg(m_page->requests().last());
}

void LongDay::publish()
{
    QElapsedTimer timer;
    timer.start();
    while (m_published < m_until && m_page->messagesOnTheirWay() < window
           && timer.elapsed() < publishMs) {
        m_page->publishEvent();
        ++m_published;
    }
}
