#include "tests/soak/StallWatch.h"

#include <glib.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>

namespace {

constexpr int intervalMs = 5;
constexpr double limitMs = 50;
constexpr double worstMs = 30;
constexpr double nanosecondsOfMs = 1e6;

// What the event loop has waited, for something to do and for a processor then.
double idleMs = 0;
double waitedIdleMs = 0;
GPollFunc formerPoll = nullptr;

double millisecondsOf(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3
        + static_cast<double>(time.tv_nsec) / nanosecondsOfMs;
}

/// Stands before the wait of the default main loop.
int watchedPoll(GPollFD *files, guint count, int timeout)
{
    if (timeout == 0)
        return formerPoll(files, count, timeout);
    const double start = millisecondsOf(CLOCK_MONOTONIC);
    const double waited = StallWatch::waitedMs();
    const int result = formerPoll(files, count, timeout);
    waitedIdleMs += StallWatch::waitedMs() - waited;
    idleMs += millisecondsOf(CLOCK_MONOTONIC) - start;
    return result;
}

/// The machine's part of all the time so far.
double leftOutMs() { return idleMs + StallWatch::waitedMs() - waitedIdleMs; }

} // namespace

StallWatch::StallWatch(QObject *parent)
    : QObject(parent)
    , m_startMs(millisecondsOf(CLOCK_MONOTONIC))
{
    formerPoll = g_main_context_get_poll_func(nullptr);
    g_main_context_set_poll_func(nullptr, &watchedPoll);
    m_lastMs = m_startMs;
    m_lastCpuMs = cpuMs();
    m_lastLeftOutMs = leftOutMs();
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &StallWatch::tick);
    m_timer.start(intervalMs);
}

StallWatch::~StallWatch() { g_main_context_set_poll_func(nullptr, formerPoll); }

void StallWatch::setPhase(Phase phase)
{
    tick();
    m_phase = phase;
}

void StallWatch::tick()
{
    const double now = millisecondsOf(CLOCK_MONOTONIC);
    const double cpu = cpuMs();
    const double leftOut = leftOutMs();
    const double gap = now - m_lastMs;
    const double own = std::max(0.0, gap - (leftOut - m_lastLeftOutMs));

    const Stall stall{(now - m_startMs) / 1000, gap, own, cpu - m_lastCpuMs};

    Stalls &stalls = m_stalls.at(m_phase);
    const auto *const bound = std::upper_bound(stalls.bounds.begin(), stalls.bounds.end(), own);
    ++stalls.histogram.at(static_cast<std::size_t>(bound - stalls.bounds.begin()));
    if (own > stalls.longest.ownMs)
        stalls.longest = stall;
    if (stall.cpuMs > stalls.mostComputing.cpuMs)
        stalls.mostComputing = stall;
    if (m_phase == Day && own > worstMs)
        m_worst.append(stall);
    if (gap > limitMs && own <= limitMs) {
        ++stalls.machineStalls;
        stalls.longestMachineMs = std::max(stalls.longestMachineMs, gap);
    }
    m_lastMs = now;
    m_lastCpuMs = cpu;
    m_lastLeftOutMs = leftOut;
}

double StallWatch::cpuMs() { return millisecondsOf(CLOCK_THREAD_CPUTIME_ID); }

double StallWatch::waitedMs()
{
    // The name stands for the thread that opens it. Read often, so kept open.
    static const int file = open("/proc/thread-self/schedstat", O_RDONLY | O_CLOEXEC);
    std::array<char, 100> text{};
    if (pread(file, text.data(), text.size() - 1, 0) <= 0)
        return 0;
    char *end = nullptr;
    std::strtoull(text.data(), &end, 10); // how long it ran
    return static_cast<double>(std::strtoull(end, nullptr, 10)) / nanosecondsOfMs;
}
