#pragma once

#include <QObject>
#include <QString>
#include <QVector>

class SoakPage;
class SoakRobot;
class StallWatch;

/// What no page and no host should do: enormous messages, and messages at full speed that nobody
/// waits for. Afterwards the widget has to answer and to paint.
class Floods : public QObject
{
    Q_OBJECT

public:
    struct Result
    {
        QString name;
        int messages = 0;
        int characters = 0; ///< that came, of a large message
        double seconds = 0; ///< until the last one had come
        double roundTripMs = 0; ///< of the first question afterwards; below zero: no answer
        double paintMs = 0; ///< until the page's next colour was in the widget; below zero: never
        double longestStallMs = 0;
        double highestMb = 0; ///< private memory, measured once a second
        double afterMb = 0;
        double trimmedMb = 0; ///< the same once the allocator has given back what it kept
    };

    Floods(SoakPage *page, SoakRobot *robot, StallWatch *stalls);

    // Qt cannot carry more than 67 million characters. More need not come, but must do no harm.
    // Each returns what went wrong; empty when nothing did.
    QString largeFromPage(int characters);
    QString largeToPage(int characters);
    QString floodFromPage(int seconds);
    QString floodToPage(int seconds);

    const QVector<Result> &results() const { return m_results; }

private:
    template <typename Work>
    QString measure(const QString &name, Work work);
    QString large(Result &result, int characters, const QMetaObject::Connection &connection);

    SoakPage *const m_page;
    SoakRobot *const m_robot;
    StallWatch *const m_stalls;
    QVector<Result> m_results;
};
