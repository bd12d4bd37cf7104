#include "simulator/app/TelephonePanel.h"

#include "host/SIPMaster.h"
#include "simulator/core/TelephoneLine.h"
#include "tests/simulator/PanelControls.h"
#include "tests/support/TestCase.h"

#include <QPushButton>

#include <memory>

using namespace simulator;

class TelephonePanelTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheCall();
    void decidesTheNextCall_data();
    void decidesTheNextCall();
    void showsWhoWasCalled();
    void pressesKeys_data();
    void pressesKeys();
    void hangsUp();
    void offersKeysDuringACallOnly();
    void followsTheLine();

protected:
    void setUp() override
    {
        TelephoneLine &line = TelephoneLine::instance();
        line.setPace(Pace());
        line.setTimes(1, 1, 1);
        line.setOutcome(TelephoneLine::Outcome::Answered);
        line.reportDialled(QString());
        line.reportState(CallStateIdle);
        m_sip = std::make_unique<SIPMaster>();
        m_panel = std::make_unique<TelephonePanel>();
        m_panel->resize(500, 160);
        m_panel->grab(); // lays it out
    }
    void tearDown() override
    {
        m_panel.reset();
        m_sip.reset();
    }

private:
    QString state() const { return controls::text(m_panel.get(), "state"); }
    bool connectCall()
    {
        return m_sip->callToNumber(QStringLiteral("123"))
            && QTest::qWaitFor([this] { return state() == QStringLiteral("connected"); });
    }

    std::unique_ptr<SIPMaster> m_sip;
    std::unique_ptr<TelephonePanel> m_panel;
};

void TelephonePanelTest::showsTheCall()
{
    QStringList shown{state()};
    connect(&TelephoneLine::instance(), &TelephoneLine::stateChanged, m_panel.get(),
            [&shown, this] { shown.append(state()); });
    QVERIFY(connectCall());
    m_sip->stopCall();
    const QStringList expected{QStringLiteral("no call"), QStringLiteral("calling"),
                               QStringLiteral("ringing"), QStringLiteral("connected"),
                               QStringLiteral("ended")};
    QCOMPARE(shown, expected);
}

void TelephonePanelTest::decidesTheNextCall_data()
{
    QTest::addColumn<int>("choice");
    QTest::addColumn<QString>("end");
    QTest::newRow("answered") << 0 << "connected";
    QTest::newRow("busy") << 1 << "busy";
    QTest::newRow("no answer") << 2 << "failed";
}

void TelephonePanelTest::decidesTheNextCall()
{
    QFETCH(int, choice);
    QFETCH(QString, end);
    TelephoneLine::instance().setOutcome(choice == 0 ? TelephoneLine::Outcome::Busy
                                                     : TelephoneLine::Outcome::Answered);
    controls::choose(m_panel.get(), "outcome", choice);
    QVERIFY(m_sip->callToNumber(QStringLiteral("123")));
    QTRY_COMPARE(state(), end);
}

void TelephonePanelTest::showsWhoWasCalled()
{
    QCOMPARE(controls::text(m_panel.get(), "number"), QStringLiteral("–"));
    QVERIFY(m_sip->callToNumber(QStringLiteral("+49 30 123")));
    QCOMPARE(controls::text(m_panel.get(), "number"), QStringLiteral("+49 30 123"));
}

void TelephonePanelTest::pressesKeys_data()
{
    QTest::addColumn<int>("tone");
    for (int digit = 0; digit < 10; ++digit)
        QTest::newRow(qPrintable(QString::number(digit))) << digit;
    QTest::newRow("*") << 10;
    QTest::newRow("#") << 11;
}

void TelephonePanelTest::pressesKeys()
{
    QVERIFY(connectCall());
    QSignalSpy tones(m_sip.get(), &SIPMaster::signalTone);
    controls::click(m_panel.get(), QTest::currentDataTag());
    QCOMPARE(tones.count(), 1);
    QTEST(tones.at(0).at(0).toInt(), "tone");
}

void TelephonePanelTest::hangsUp()
{
    QVERIFY(connectCall());
    QSignalSpy states(m_sip.get(), &SIPMaster::signalPublicCallState);
    controls::click(m_panel.get(), "Hangs up");
    QCOMPARE(states.count(), 1);
    QCOMPARE(states.at(0).at(0).value<CallState>(), CallStateEnded);
    QCOMPARE(state(), QStringLiteral("ended"));
}

void TelephonePanelTest::offersKeysDuringACallOnly()
{
    const auto *key = controls::find<QPushButton>(m_panel.get(), "#");
    const auto *hangUp = controls::find<QPushButton>(m_panel.get(), "Hangs up");
    QVERIFY(!key->isEnabled());
    QVERIFY(!hangUp->isEnabled());
    QVERIFY(connectCall());
    QVERIFY(key->isEnabled());
    QVERIFY(hangUp->isEnabled());
    m_sip->stopCall();
    QVERIFY(!key->isEnabled());
    QVERIFY(!hangUp->isEnabled());
}

void TelephonePanelTest::followsTheLine()
{
    TelephoneLine::instance().setOutcome(TelephoneLine::Outcome::NoAnswer);
    QCOMPARE(controls::find<QComboBox>(m_panel.get(), "outcome")->currentText(),
             QStringLiteral("no answer"));
}

QTEST_MAIN(TelephonePanelTest)

#include "tst_telephonepanel.moc"
