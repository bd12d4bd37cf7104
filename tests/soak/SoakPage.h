#pragma once

#include "panorel/Message.h"
#include "tests/soak/Numbers.h"

#include <QObject>
#include <QVariantMap>

#include <functional>
#include <memory>

class QWebEngineView;
class SoakRobot;

namespace panorel {
class Panorel;
}

/// The widget with all its handlers, page.html in it, and the counts on the bus. The robot outlives
/// it.
class SoakPage : public QObject
{
    Q_OBJECT

public:
    static constexpr int handlersPeriod = 1000;

    /// @p fault is one of FaultyBrocker::faults().
    SoakPage(SoakRobot *robot, const QString &fault);
    ~SoakPage() override;

    /// Loads the page, and tells it where counting goes on: with the next message that the robot
    /// numbers, and the next request that the bus expects. False when it does not come in time.
    bool open();

    /// One event with the robot's next number; several kinds in turn.
    void publishEvent();
    /// A report of 20 faces with five matches each, numbered, too.
    void publishFaces();

    /// Tells the page what to do; see page.js.
    void command(const QString &name, QVariantMap arguments = {});
    /// Has the page send requests up to this one.
    void requestUntil(int number);

    /// Whether both sides agree, once everything that was sent has come; what went wrong otherwise.
    QString check();

    /// Milliseconds until the page has answered, and until what it paints is in the widget. Below
    /// zero when it takes longer than @p limitMs.
    double roundTrip(int limitMs);
    double paint(int limitMs);

    /// Turns the event loop until @p condition holds. False when that takes too long.
    static bool waitFor(const std::function<bool()> &condition, int limitMs);

    /// Messages to the page that it has not yet told to have.
    int messagesOnTheirWay() const;
    const Numbers &requests() const { return m_requests; }
    /// Messages that were sent while no page listened.
    int unheard() const { return m_unheard; }
    int handlerSets() const { return m_handlerSets; }
    int loads() const { return m_loads; }

Q_SIGNALS:
    /// The page said something outside the counts: "soak.NAME".
    void said(const QString &name, const QVariantMap &attributes);

private:
    void buildHandlers();
    void subscribe();
    void onRequest(const panorel::Message &message);

    SoakRobot *const m_robot;
    std::unique_ptr<panorel::Panorel> m_screen;
    QWebEngineView *m_view;
    Numbers m_requests{QStringLiteral("requests on the bus")};
    int m_requested = 0;
    int m_seen = 0;
    int m_settled = 0; // the last message to the page that both sides had agreed on
    int m_unheard = 0;
    int m_handlerSets = 0;
    int m_loads = 0;
    int m_questions = 0;
};
