#pragma once

#include <QObject>
#include <QTimer>
#include <QVector>

#include <array>

/// Watches whether the GUI thread turns its event loop. A timer of 5 ms ticks in it; what the thread
/// did between two ticks is a stall, as far as it was its own doing: computing, waiting for a file or
/// for another process, sleeping in a handler.
///
/// Two parts of the time are the machine's and left out: that in which the thread was ready to run and
/// had no processor (second figure of /proc/thread-self/schedstat), and that in which the event loop
/// waited for something to do, and was woken late.
class StallWatch : public QObject
{
    Q_OBJECT

public:
    /// What is going on; stalls of each are kept apart.
    enum Phase { Day, Loading, Flood, PhaseCount };

    struct Stall
    {
        double atSeconds = 0;
        double gapMs = 0; // between two ticks
        double ownMs = 0; // of it, the thread's own doing
        double cpuMs = 0; // of it, computing
    };

    struct Stalls
    {
        /// Ticks by their stall: below 10, 20, 30, 50, 100, 200, 500 ms, and longer.
        static constexpr std::array<int, 7> bounds{10, 20, 30, 50, 100, 200, 500};
        std::array<int, bounds.size() + 1> histogram{};
        Stall longest;
        Stall mostComputing;
        /// Ticks over 50 ms after the one before, but not by the thread's own doing, and the longest.
        int machineStalls = 0;
        double longestMachineMs = 0;
    };

    /// Of the thread that calls it, which is the one of the default main loop. One at a time.
    explicit StallWatch(QObject *parent = nullptr);
    ~StallWatch() override;

    /// From now on; what passed since the last tick still counts for the phase before.
    void setPhase(Phase phase);

    /// Begins a phase anew.
    void forget(Phase phase) { m_stalls.at(phase) = {}; }

    const Stalls &stalls(Phase phase) const { return m_stalls.at(phase); }
    /// Of the day, those over 30 ms.
    const QVector<Stall> &worst() const { return m_worst; }
    /// How long the thread had the processor, and how long it waited for one.
    static double cpuMs();
    static double waitedMs();

private:
    void tick();

    QTimer m_timer;
    Phase m_phase = Loading;
    double m_lastMs = 0;
    double m_lastCpuMs = 0;
    double m_lastLeftOutMs = 0;
    const double m_startMs;
    QVector<Stall> m_worst;
    std::array<Stalls, PhaseCount> m_stalls{};
};
