#include "simulator/core/SimulatedInteractionService.h"

#include "tests/support/TestCase.h"

using simulator::SimulatedInteractionService;

class SimulatedInteractionServiceTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void startsOnRequest();
    void startsForAReason();
    void startingTwiceDoesNotRestart();
    void stopsOnce();
};

void SimulatedInteractionServiceTest::startsOnRequest()
{
    SimulatedInteractionService service;
    QList<int> reasons;
    connect(&service, &IInteractionService::started, this,
            [&reasons](Interaction::Reason reason) { reasons.append(reason); });
    service.start();
    QCOMPARE(reasons, QList<int>{Interaction::Requested});
    QVERIFY(service.isRunning());
}

void SimulatedInteractionServiceTest::startsForAReason()
{
    SimulatedInteractionService service;
    QList<int> reasons;
    connect(&service, &IInteractionService::started, this,
            [&reasons](Interaction::Reason reason) { reasons.append(reason); });
    service.startFor(Interaction::SpeechHeard);
    QCOMPARE(reasons, QList<int>{Interaction::SpeechHeard});
}

void SimulatedInteractionServiceTest::startingTwiceDoesNotRestart()
{
    SimulatedInteractionService service;
    QSignalSpy started(&service, &IInteractionService::started);
    QSignalSpy finished(&service, &IInteractionService::finished);
    service.startFor(Interaction::FaceDetected);
    service.start();
    QCOMPARE(started.count(), 1);
    QCOMPARE(finished.count(), 0);
}

void SimulatedInteractionServiceTest::stopsOnce()
{
    SimulatedInteractionService service;
    QSignalSpy finished(&service, &IInteractionService::finished);
    service.stop();
    QCOMPARE(finished.count(), 0);
    service.start();
    service.stop();
    service.stop();
    QCOMPARE(finished.count(), 1);
    QVERIFY(!service.isRunning());
}

QTEST_GUILESS_MAIN(SimulatedInteractionServiceTest)

#include "tst_simulatedinteractionservice.moc"
