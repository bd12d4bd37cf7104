#include "simulator/core/Pace.h"

#include "tests/support/TestCase.h"

using simulator::Pace;

class PaceTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void beginsWithRealTime();
    void speedDividesTime_data();
    void speedDividesTime();
    void copiesShareOneSpeed();
    void holdsSpeedWithinItsBounds();
};

void PaceTest::beginsWithRealTime()
{
    const Pace pace;
    QCOMPARE(pace.speed(), 1.0);
    QCOMPARE(pace.milliseconds(1234), 1234);
}

void PaceTest::speedDividesTime_data()
{
    QTest::addColumn<double>("speed");
    QTest::addColumn<int>("nominal");
    QTest::addColumn<int>("real");
    QTest::newRow("twice as fast") << 2.0 << 500 << 250;
    QTest::newRow("half as fast") << 0.5 << 500 << 1000;
    QTest::newRow("rounded") << 1000.0 << 600 << 1;
    QTest::newRow("nothing") << 1.0 << 0 << 0;
    QTest::newRow("negative") << 1.0 << -5 << 0;
    QTest::newRow("at most an hour") << 0.01 << 2000000000 << 3600000;
}

void PaceTest::speedDividesTime()
{
    QFETCH(double, speed);
    QFETCH(int, nominal);
    Pace pace;
    pace.setSpeed(speed);
    QTEST(pace.milliseconds(nominal), "real");
}

void PaceTest::copiesShareOneSpeed()
{
    Pace pace;
    const Pace copy = pace;
    pace.setSpeed(4);
    QCOMPARE(copy.speed(), 4.0);
}

void PaceTest::holdsSpeedWithinItsBounds()
{
    Pace pace;
    pace.setSpeed(0);
    QCOMPARE(pace.speed(), 0.01);
    pace.setSpeed(1e9);
    QCOMPARE(pace.speed(), 10000.0);
}

QTEST_GUILESS_MAIN(PaceTest)

#include "tst_pace.moc"
