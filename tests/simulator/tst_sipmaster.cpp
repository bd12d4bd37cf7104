#include "host/SIPMaster.h"

#include "simulator/core/TelephoneLine.h"
#include "tests/support/TestCase.h"

using simulator::Pace;
using simulator::TelephoneLine;
using Outcome = TelephoneLine::Outcome;

class SIPMasterTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void callEnds_data();
    void callEnds();
    void reportsNothingBeforeTheCallerHasItsAnswer();
    void refusesACall_data();
    void refusesACall();
    void stopHangsUp();
    void otherSideHangsUp();
    void passesTonesDuringACallOnly();
    void playsQueuedCallsInOrder();
    void callsAgainWhenNobodyAnswers_data();
    void callsAgainWhenNobodyAnswers();
    void queuedCallsNeedTextAndNumber();
    void clearingDropsQueuedCallsSilently();
    void queueWaitsForTheOrdinaryCall();
    void mayDieDuringACall();
    void theLineShowsEveryCall_data();
    void theLineShowsEveryCall();
    void theLineShowsQueuedCalls_data();
    void theLineShowsQueuedCalls();
    void theLineIsFreeAfterwards_data();
    void theLineIsFreeAfterwards();
    void theLineRemembersTheNumber();
    void theLineReportsANewOutcome();

protected:
    void setUp() override
    {
        TelephoneLine::instance().setPace(Pace());
        TelephoneLine::instance().setTimes(1, 1, 1);
        TelephoneLine::instance().setOutcome(Outcome::Answered);
        TelephoneLine::instance().reportState(CallStateIdle);
        m_lineStates.clear();
        connect(&TelephoneLine::instance(), &TelephoneLine::stateChanged, this,
                &SIPMasterTest::noteLineState);
        m_states.clear();
        m_results.clear();
        m_sip.reset(new SIPMaster);
        connect(m_sip.data(), &SIPMaster::signalPublicCallState, this,
                [this](CallState state) { m_states.append(state); });
        connect(m_sip.data(), &SIPMaster::signalHiddenCallResult, this,
                [this](const QUuid &id, bool success) {
                    m_results.append({id, success});
                });
    }
    void tearDown() override
    {
        m_sip.reset();
        TelephoneLine::instance().disconnect(this);
    }

private:
    void noteLineState(CallState state) { m_lineStates.append(state); }

    const QString m_number = QStringLiteral("123");
    QScopedPointer<SIPMaster> m_sip;
    QList<int> m_states;
    QList<int> m_lineStates;
    QList<QPair<QUuid, bool>> m_results;
};

Q_DECLARE_METATYPE(TelephoneLine::Outcome)

void SIPMasterTest::callEnds_data()
{
    QTest::addColumn<Outcome>("outcome");
    QTest::addColumn<QList<int>>("states");
    QTest::newRow("answered") << Outcome::Answered
                              << QList<int>{CallStateCalling, CallStateRinging, CallStateConnected};
    QTest::newRow("busy") << Outcome::Busy << QList<int>{CallStateCalling, CallStateBusy};
    QTest::newRow("no answer") << Outcome::NoAnswer
                               << QList<int>{CallStateCalling, CallStateRinging, CallStateFailed};
}

void SIPMasterTest::callEnds()
{
    QFETCH(Outcome, outcome);
    QFETCH(QList<int>, states);
    TelephoneLine::instance().setOutcome(outcome);
    QVERIFY(m_sip->callToNumber(m_number));
    QTRY_COMPARE(m_states, states);
    if (outcome != Outcome::Answered)
        QVERIFY(m_sip->callToNumber(m_number)); // the line is free again
}

void SIPMasterTest::reportsNothingBeforeTheCallerHasItsAnswer()
{
    TelephoneLine::instance().setTimes(0, 0, 0);
    QVERIFY(m_sip->callToNumber(m_number));
    QVERIFY(m_states.isEmpty());
}

void SIPMasterTest::refusesACall_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("without a number") << ""
                                      << "";
    QTest::newRow("during another") << "123"
                                    << "456";
}

void SIPMasterTest::refusesACall()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    if (!first.isEmpty())
        QVERIFY(m_sip->callToNumber(first));
    QVERIFY(!m_sip->callToNumber(second));
}

void SIPMasterTest::stopHangsUp()
{
    m_sip->stopCall();
    QVERIFY(m_states.isEmpty());
    QVERIFY(m_sip->callToNumber(m_number));
    QTRY_VERIFY(m_states.contains(CallStateConnected));
    m_sip->stopCall();
    QCOMPARE(m_states.last(), static_cast<int>(CallStateEnded));
    m_sip->stopCall();
    QCOMPARE(m_states.count(CallStateEnded), 1);
}

void SIPMasterTest::otherSideHangsUp()
{
    QVERIFY(m_sip->callToNumber(m_number));
    QTRY_VERIFY(m_states.contains(CallStateConnected));
    TelephoneLine::instance().hangUp();
    QCOMPARE(m_states.last(), static_cast<int>(CallStateEnded));
}

void SIPMasterTest::passesTonesDuringACallOnly()
{
    QSignalSpy tones(m_sip.data(), &SIPMaster::signalTone);
    TelephoneLine::instance().pressKey(5);
    QCOMPARE(tones.count(), 0);
    QVERIFY(m_sip->callToNumber(m_number));
    QTRY_VERIFY(m_states.contains(CallStateConnected));
    TelephoneLine::instance().pressKey(5);
    QCOMPARE(tones.count(), 1);
    QCOMPARE(tones.at(0).at(0).toInt(), 5);
}

void SIPMasterTest::playsQueuedCallsInOrder()
{
    const QUuid first = m_sip->playTextToNumber(QStringLiteral("Hello"), m_number, 1);
    const QUuid second = m_sip->playFileToNumber(QStringLiteral("a.wav"), m_number, 1);
    QVERIFY(!first.isNull());
    QVERIFY(first != second);
    const QList<QPair<QUuid, bool>> expected{{first, true}, {second, true}};
    QTRY_COMPARE(m_results, expected);
}

void SIPMasterTest::callsAgainWhenNobodyAnswers_data()
{
    QTest::addColumn<int>("recallCount");
    QTest::addColumn<int>("calls");
    QTest::newRow("not again") << 0 << 1;
    QTest::newRow("twice again") << 2 << 3;
    QTest::newRow("negative") << -1 << 1;
}

void SIPMasterTest::callsAgainWhenNobodyAnswers()
{
    QFETCH(int, recallCount);
    TelephoneLine::instance().setOutcome(Outcome::NoAnswer);
    QSignalSpy dialled(&TelephoneLine::instance(), &TelephoneLine::dialled);
    const QUuid id = m_sip->playTextToNumber(QStringLiteral("Hello"), m_number, recallCount);
    const QList<QPair<QUuid, bool>> expected{{id, false}};
    QTRY_COMPARE(m_results, expected);
    QTEST(dialled.count(), "calls");
}

void SIPMasterTest::queuedCallsNeedTextAndNumber()
{
    QVERIFY(m_sip->playTextToNumber(QString(), m_number, 1).isNull());
    QVERIFY(m_sip->playTextToNumber(QStringLiteral("Hello"), QString(), 1).isNull());
    QVERIFY(m_sip->playFileToNumber(QString(), m_number, 1).isNull());
}

void SIPMasterTest::clearingDropsQueuedCallsSilently()
{
    m_sip->playTextToNumber(QStringLiteral("one"), m_number, 1);
    m_sip->playTextToNumber(QStringLiteral("two"), m_number, 1);
    m_sip->clearQueue();
    m_sip->stopCall();
    const QUuid id = m_sip->playTextToNumber(QStringLiteral("three"), m_number, 1);
    const QList<QPair<QUuid, bool>> expected{{id, true}};
    QTRY_COMPARE(m_results, expected);
}

void SIPMasterTest::queueWaitsForTheOrdinaryCall()
{
    QVERIFY(m_sip->callToNumber(m_number));
    QTRY_VERIFY(m_states.contains(CallStateConnected));
    QSignalSpy dialled(&TelephoneLine::instance(), &TelephoneLine::dialled);
    m_sip->playTextToNumber(QStringLiteral("Hello"), m_number, 0);
    turnEventLoop();
    QCOMPARE(dialled.count(), 0);
    m_sip->stopCall();
    QTRY_COMPARE(m_results.size(), 1);
}

void SIPMasterTest::mayDieDuringACall()
{
    QVERIFY(m_sip->callToNumber(m_number));
    m_sip->playTextToNumber(QStringLiteral("Hello"), m_number, 0);
    m_sip.reset();
    TelephoneLine::instance().pressKey(1);
    TelephoneLine::instance().hangUp();
    turnEventLoop();
}

void SIPMasterTest::theLineShowsEveryCall_data() { callEnds_data(); }

void SIPMasterTest::theLineShowsEveryCall()
{
    QFETCH(Outcome, outcome);
    QFETCH(QList<int>, states);
    TelephoneLine::instance().setOutcome(outcome);
    QVERIFY(m_sip->callToNumber(m_number));
    QTRY_COMPARE(m_lineStates, states);
    QCOMPARE(TelephoneLine::instance().state(), static_cast<CallState>(states.last()));
}

void SIPMasterTest::theLineShowsQueuedCalls_data()
{
    QTest::addColumn<Outcome>("outcome");
    QTest::addColumn<int>("recallCount");
    QTest::addColumn<QList<int>>("states");
    QTest::newRow("answered") << Outcome::Answered << 1
                              << QList<int>{CallStateCalling, CallStateConnected, CallStateEnded};
    QTest::newRow("busy, twice") << Outcome::Busy << 1
                                 << QList<int>{CallStateCalling, CallStateBusy, CallStateCalling,
                                               CallStateBusy};
    QTest::newRow("no answer") << Outcome::NoAnswer << 0
                               << QList<int>{CallStateCalling, CallStateFailed};
}

void SIPMasterTest::theLineShowsQueuedCalls()
{
    QFETCH(Outcome, outcome);
    QFETCH(int, recallCount);
    QFETCH(QList<int>, states);
    TelephoneLine::instance().setOutcome(outcome);
    m_sip->playTextToNumber(QStringLiteral("Hello"), m_number, recallCount);
    QTRY_COMPARE(m_results.size(), 1);
    QCOMPARE(m_lineStates, states);
    QVERIFY(m_states.isEmpty()); // an ordinary call's only
}

void SIPMasterTest::theLineIsFreeAfterwards_data()
{
    QTest::addColumn<bool>("queued");
    QTest::addColumn<QString>("how");
    QTest::newRow("stopped") << false << "stop";
    QTest::newRow("queued, stopped") << true << "stop";
    QTest::newRow("died") << false << "die";
    QTest::newRow("queued, died") << true << "die";
    QTest::newRow("queued, cleared") << true << "clear";
}

void SIPMasterTest::theLineIsFreeAfterwards()
{
    QFETCH(bool, queued);
    QFETCH(QString, how);
    TelephoneLine::instance().setTimes(1, 1, 60000);
    if (queued)
        m_sip->playTextToNumber(QStringLiteral("Hello"), m_number, 1);
    else
        QVERIFY(m_sip->callToNumber(m_number));
    QTRY_COMPARE(TelephoneLine::instance().state(), CallStateConnected);
    if (how == QStringLiteral("stop"))
        m_sip->stopCall();
    else if (how == QStringLiteral("clear"))
        m_sip->clearQueue();
    else
        m_sip.reset();
    QCOMPARE(m_lineStates.last(), static_cast<int>(CallStateEnded));
}

void SIPMasterTest::theLineRemembersTheNumber()
{
    QVERIFY(m_sip->callToNumber(QStringLiteral("1")));
    QCOMPARE(TelephoneLine::instance().number(), QStringLiteral("1"));
    m_sip->stopCall();
    m_sip->playTextToNumber(QStringLiteral("Hello"), QStringLiteral("2"), 1);
    QTRY_COMPARE(TelephoneLine::instance().number(), QStringLiteral("2"));
}

void SIPMasterTest::theLineReportsANewOutcome()
{
    int reports = 0;
    const auto connection = connect(&TelephoneLine::instance(), &TelephoneLine::outcomeChanged,
                                    m_sip.data(), [&reports] { ++reports; });
    TelephoneLine::instance().setOutcome(Outcome::Busy);
    TelephoneLine::instance().setOutcome(Outcome::Busy);
    QCOMPARE(reports, 1);
    disconnect(connection);
}

QTEST_GUILESS_MAIN(SIPMasterTest)

#include "tst_sipmaster.moc"
