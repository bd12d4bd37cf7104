#include "panorel/handlers/AbortRobotReplicHandler.h"

#include "tests/support/DialogTestCase.h"
#include "tests/support/PageRequest.h"

using panorel::AbortRobotReplicHandler;

class AbortRobotReplicHandlerTest : public DialogTestCase
{
    Q_OBJECT

private:
    void create(PluginInterface *host)
    {
        subscribe(new AbortRobotReplicHandler(context(), host),
                  QStringLiteral("dialog.robot.replic.abort"));
    }

    void lendTwoMacros()
    {
        context()->putMacrosValue(QStringLiteral("b"), QStringLiteral("2"));
        context()->putMacrosValue(QStringLiteral("a"), QStringLiteral("1"));
        takeCalls();
        log().skipDebug();
    }

    const QString m_name = QStringLiteral("AbortRobotReplicHandler");
    const HostCall m_cancel{QStringLiteral("ttsCancel"), {}};
    const HostCall m_removeA{QStringLiteral("removeMacros"), {QStringLiteral("a")}};
    const HostCall m_removeB{QStringLiteral("removeMacros"), {QStringLiteral("b")}};

private Q_SLOTS:
    void cancelsSpeechThenWithdrawsMacros();
    void cancelsWithoutMacros();
    void withdrawsMacrosOnce();
    void readsNoAttribute();
    void withdrawsMacrosWithoutAHost();
};

void AbortRobotReplicHandlerTest::cancelsSpeechThenWithdrawsMacros()
{
    create(plugin());
    lendTwoMacros();
    request({}, m_name);
    QCOMPARE(takeCalls(), QVector<HostCall>({m_cancel, m_removeA, m_removeB}));
    QCOMPARE(log().takeTexts(QStringLiteral("panorel")),
             QStringList({QStringLiteral("ReplicContext.clear()"),
                          QStringLiteral("ReplicContext remove \"a\""),
                          QStringLiteral("ReplicContext remove \"b\"")}));
    QCOMPARE(log().take(), QVector<LogLine>());
}

void AbortRobotReplicHandlerTest::cancelsWithoutMacros()
{
    create(plugin());
    request({}, m_name);
    QCOMPARE(takeCalls(), QVector<HostCall>({m_cancel}));
    const QVector<LogLine> expected{
        {QtDebugMsg, QStringLiteral("panorel"), QStringLiteral("ReplicContext.clear()")}};
    QCOMPARE(log().take(), expected);
}

void AbortRobotReplicHandlerTest::withdrawsMacrosOnce()
{
    create(plugin());
    lendTwoMacros();
    request({}, m_name);
    log().skipDebug();
    request({}, m_name);
    QCOMPARE(takeCalls(), QVector<HostCall>({m_cancel, m_removeA, m_removeB, m_cancel}));
}

void AbortRobotReplicHandlerTest::readsNoAttribute()
{
    makesUpAttributes({"abort", "macroses", "step", "terminate", "text"});
    create(plugin());
    lendTwoMacros();
    request(fromPage(R"({"text": "Hello", "terminate": false, "macroses": {"c": "3"},
                         "step": "intro", "abort": false})"),
            m_name);
    QCOMPARE(takeCalls(), QVector<HostCall>({m_cancel, m_removeA, m_removeB}));
}

void AbortRobotReplicHandlerTest::withdrawsMacrosWithoutAHost()
{
    create(nullptr);
    lendTwoMacros();
    request({}, m_name);
    QCOMPARE(takeCalls(), QVector<HostCall>({m_removeA, m_removeB}));
}

QTEST_GUILESS_MAIN(AbortRobotReplicHandlerTest)
#include "tst_abortrobotreplichandler.moc"
