#include "simulator/core/SimulatedScripts.h"

#include "tests/support/TestCase.h"

using simulator::Pace;
using simulator::SimulatedScripts;

class SimulatedScriptsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void startsAKnownScript();
    void refusesAnUnknownScript_data();
    void refusesAnUnknownScript();
    void runsOneAtATime();
    void cancelEndsTheScript();
    void cancelWithoutAScriptDoesNothing();
};

void SimulatedScriptsTest::startsAKnownScript()
{
    SimulatedScripts scripts{Pace()};
    scripts.setDuration(5);
    QSignalSpy finished(&scripts, &SimulatedScripts::finished);
    const QStringList expected{QStringLiteral("started"), QStringLiteral("welcome")};
    QCOMPARE(scripts.start(QStringLiteral("welcome")), expected);
    QCOMPARE(scripts.running(), QStringLiteral("welcome"));
    QTRY_COMPARE(finished.count(), 1);
    QCOMPARE(finished.at(0).at(0).toString(), QStringLiteral("welcome"));
    QVERIFY(scripts.running().isEmpty());
}

void SimulatedScriptsTest::refusesAnUnknownScript_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("unknown") << "fly";
    QTest::newRow("empty") << "";
    QTest::newRow("letter case") << "Welcome";
}

void SimulatedScriptsTest::refusesAnUnknownScript()
{
    QFETCH(QString, name);
    SimulatedScripts scripts{Pace()};
    QSignalSpy started(&scripts, &SimulatedScripts::started);
    const QStringList result = scripts.start(name);
    QCOMPARE(result.size(), 2);
    QCOMPARE(result.at(0), QStringLiteral("error"));
    QVERIFY(result.at(1).contains(QStringLiteral("welcome"))); // names the known ones
    QCOMPARE(started.count(), 0);
}

void SimulatedScriptsTest::runsOneAtATime()
{
    SimulatedScripts scripts{Pace()};
    scripts.start(QStringLiteral("tour"));
    const QStringList result = scripts.start(QStringLiteral("dance"));
    QCOMPARE(result.value(0), QStringLiteral("error"));
    QVERIFY(result.value(1).contains(QStringLiteral("tour")));
    QCOMPARE(scripts.running(), QStringLiteral("tour"));
}

void SimulatedScriptsTest::cancelEndsTheScript()
{
    SimulatedScripts scripts{Pace()};
    QSignalSpy finished(&scripts, &SimulatedScripts::finished);
    scripts.start(QStringLiteral("tour"));
    scripts.cancel();
    QCOMPARE(finished.count(), 1);
    QCOMPARE(scripts.start(QStringLiteral("dance")).value(0), QStringLiteral("started"));
}

void SimulatedScriptsTest::cancelWithoutAScriptDoesNothing()
{
    SimulatedScripts scripts{Pace()};
    QSignalSpy finished(&scripts, &SimulatedScripts::finished);
    scripts.cancel();
    QCOMPARE(finished.count(), 0);
}

QTEST_GUILESS_MAIN(SimulatedScriptsTest)

#include "tst_simulatedscripts.moc"
