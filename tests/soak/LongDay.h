#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class MemoryWatch;
class SoakPage;
class StallWatch;

/// The day: events, requests and face reports side by side, with loads in between.
class LongDay : public QObject
{
    Q_OBJECT

public:
    /// So many events, and as many requests. The watches and the page outlive it.
    LongDay(int messages, int loads, SoakPage *page, StallWatch *stalls, MemoryWatch *memory);

    /// What went wrong; empty when nothing did.
    QString run();

    int faceReports() const { return m_faceReports; }
    /// Of the day without the loads.
    double seconds() const { return m_seconds; }

private:
    QString work(int stop);
    void publish();

    const int m_messages;
    const int m_stops; // at each both sides compare their counts
    SoakPage *const m_page;
    StallWatch *const m_stalls;
    MemoryWatch *const m_memory;
    QTimer m_events;
    QTimer m_faces;
    int m_published = 0;
    int m_until = 0;
    int m_faceReports = 0;
    double m_seconds = 0;
};
