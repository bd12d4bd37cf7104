#include "simulator/core/OperatorDesk.h"

#include "tests/support/TestCase.h"

using simulator::OperatorDesk;

class OperatorDeskTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void reportsACallOnce();
    void passesAnyCodeOn();
    void withdrawingEndsControl();
    void controlNeedsNoCall();
};

void OperatorDeskTest::reportsACallOnce()
{
    OperatorDesk desk;
    QSignalSpy calls(&desk, &OperatorDesk::callChanged);
    desk.setCalled(true);
    desk.setCalled(true);
    QCOMPARE(calls.count(), 1);
    QVERIFY(desk.isCalled());
    desk.setCalled(false);
    QCOMPARE(calls.count(), 2);
    QVERIFY(!desk.isCalled());
}

void OperatorDeskTest::passesAnyCodeOn()
{
    OperatorDesk desk;
    QList<int> codes;
    connect(&desk, &OperatorDesk::responded, this,
            [&codes](unsigned char code) { codes.append(code); });
    desk.respond(OperatorDesk::Busy);
    desk.respond(255);
    QCOMPARE(codes, (QList<int>{2, 255}));
}

void OperatorDeskTest::withdrawingEndsControl()
{
    OperatorDesk desk;
    desk.setCalled(true);
    desk.setControl(true);
    QSignalSpy control(&desk, &OperatorDesk::controlChanged);
    desk.setCalled(false);
    QCOMPARE(control.count(), 1);
    QVERIFY(!desk.hasControl());
}

void OperatorDeskTest::controlNeedsNoCall()
{
    OperatorDesk desk;
    QSignalSpy control(&desk, &OperatorDesk::controlChanged);
    desk.setControl(true);
    desk.setControl(true);
    QCOMPARE(control.count(), 1);
    QVERIFY(desk.hasControl());
}

QTEST_GUILESS_MAIN(OperatorDeskTest)

#include "tst_operatordesk.moc"
