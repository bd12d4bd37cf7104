#include "simulator/core/SimulatedFaces.h"

#include "tests/support/TestCase.h"

using simulator::Pace;
using simulator::SimulatedFaces;

class SimulatedFacesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void learnsAFaceStepByStep();
    void deletingEndsTheTraining();
    void keepsWhatItWasTold();
};

void SimulatedFacesTest::learnsAFaceStepByStep()
{
    SimulatedFaces faces{Pace()};
    faces.setStepTime(2);
    QList<int> steps;
    connect(&faces, &SimulatedFaces::trainStatusChanged, this,
            [&steps](const FaceTrainStatus &status) { steps.append(status.step()); });
    faces.addFace(7);
    QCOMPARE(steps, QList<int>{0});
    QVERIFY(faces.known().isEmpty());
    QTRY_COMPARE(steps, (QList<int>{0, 1, 2, 3, 4, 5}));
    QCOMPARE(faces.known(), QSet<long long>{7});
    faces.deleteFace(7);
    QVERIFY(faces.known().isEmpty());
}

void SimulatedFacesTest::deletingEndsTheTraining()
{
    SimulatedFaces faces{Pace()};
    faces.setStepTime(2);
    int steps = 0;
    connect(&faces, &SimulatedFaces::trainStatusChanged, this, [&steps] { ++steps; });
    faces.addFace(7);
    faces.deleteFace(7);

    // When another training has ended, this one would have, too.
    SimulatedFaces others{Pace()};
    others.setStepTime(2);
    others.addFace(8);
    QTRY_COMPARE(others.known(), QSet<long long>{8});
    QCOMPARE(steps, 1);
    QVERIFY(faces.known().isEmpty());
}

void SimulatedFacesTest::keepsWhatItWasTold()
{
    SimulatedFaces faces{Pace()};
    QSignalSpy changed(&faces, &SimulatedFaces::changed);
    faces.setTrackingAuto(false);
    faces.track(5000000000);
    faces.setHeadEnabled(false);
    QVERIFY(!faces.isTrackingAuto());
    QCOMPARE(faces.tracked(), 5000000000LL);
    QVERIFY(!faces.isHeadEnabled());
    QCOMPARE(changed.count(), 3);
}

QTEST_GUILESS_MAIN(SimulatedFacesTest)

#include "tst_simulatedfaces.moc"
