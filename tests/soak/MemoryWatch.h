#pragma once

#include <QVector>

/// What the host process, and the page's beside it, take of the machine's memory.
class MemoryWatch
{
public:
    struct Sample
    {
        int progress = 0; // what had been done, in percent
        double privateMb = 0; // pages that are this process's alone
        double dirtyMb = 0; // of them, those that it has written to
        double inUseMb = 0; // what the program has allocated and not freed
        double heldMb = 0; // what the allocator has from the system, its own spare included
        double rendererMb = 0; // private pages of the processes that draw pages
    };

    void take(int progress);
    const QVector<Sample> &samples() const { return m_samples; }

    /// How much more than at the beginning the end takes, in percent: the lower quartiles of the
    /// samples between 10 and 30 percent, and of those from 80 percent on. Lower, because what the
    /// allocator keeps at hand comes and goes.
    double growthPercent(double Sample::*figure) const;

    static Sample now();

private:
    double lowerQuartile(double Sample::*figure, int from, int to) const;

    QVector<Sample> m_samples;
};
