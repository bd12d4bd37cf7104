#include "panorel/ReplicContext.h"

#include "tests/support/TestCase.h"
#include "tests/support/TestPlugin.h"

using panorel::ReplicContext;

class ReplicContextTest : public TestCase
{
    Q_OBJECT

private:
    void setUp() override { m_plugin = std::make_unique<TestPlugin>(); }
    void tearDown() override { m_plugin.reset(); }

    std::unique_ptr<TestPlugin> m_plugin;

private Q_SLOTS:
    void forwardsARequestByType();
    void forwardsARequestByStep();
    void passesOnThatThereIsNoReplica();
    void putsMacrosAtOnce();
    void putsAMacroTwiceWithdrawsItOnce();
    void withdrawsInAscendingOrder();
    void asksForTheCurrentReplacer();
    void keepsTheFirstReplacerAlive();
    void clearOfAnEmptyTableOnlyLogs();
    void destructorWithdrawsNothing();
    void livesWithoutAReplacer();
    void livesWithoutAPlugin();
};

void ReplicContextTest::forwardsARequestByType()
{
    m_plugin->replica = QSharedPointer<Replica>::create();
    ReplicContext context(m_plugin.get());
    FaceInfo face;
    face.setId(42);
    const auto replica =
        context.getReplic(Replica::Farewell, QStringLiteral("bye"), false, true, face);
    QCOMPARE(replica, m_plugin->replica);
    QCOMPARE(m_plugin->calls,
             QVector<HostCall>(
                 {{QStringLiteral("getReplica"), {2, QStringLiteral("bye"), false, true, 42LL}}}));
    const QVector<LogLine> expected{
        {QtDebugMsg, QStringLiteral("panorel"), QStringLiteral("ReplicContext getReplic 2")}};
    QCOMPARE(log().take(), expected);
}

void ReplicContextTest::forwardsARequestByStep()
{
    m_plugin->replica = QSharedPointer<Replica>::create();
    ReplicContext context(m_plugin.get());
    const QVariant category = QVariant::fromValue(ID(5, QUuid()));
    const auto replica =
        context.getAppReplic(QStringLiteral("intro"), category, true, false, FaceInfo());
    QCOMPARE(replica, m_plugin->replica);
    QCOMPARE(m_plugin->calls.size(), 1);
    const QVariantList arguments = m_plugin->calls.first().arguments;
    QCOMPARE(m_plugin->calls.first().name, QStringLiteral("getAppReplica"));
    QCOMPARE(arguments.at(0), QVariant(QStringLiteral("intro")));
    QVERIFY(arguments.at(1).value<ID>() == ID(5, QUuid()));
    QCOMPARE(arguments.mid(2), QVariantList({true, false, 0LL}));
    const QVector<LogLine> expected{{QtDebugMsg, QStringLiteral("panorel"),
                                     QStringLiteral("ReplicContext getAppReplic \"intro\"")}};
    QCOMPARE(log().take(), expected);
}

void ReplicContextTest::passesOnThatThereIsNoReplica()
{
    ReplicContext context(m_plugin.get());
    QVERIFY(context.getReplic(Replica::Plain, {}, true, true, {}).isNull());
    QVERIFY(context.getAppReplic(QStringLiteral("x"), {}, true, true, {}).isNull());
    QCOMPARE(m_plugin->calls.size(), 2);
}

void ReplicContextTest::putsMacrosAtOnce()
{
    ReplicContext context(m_plugin.get());
    context.putMacrosValue(QStringLiteral("name"), QStringLiteral("Ann"));
    QCOMPARE(m_plugin->replacer->calls, QStringList({QStringLiteral("set name=Ann")}));
    const QVector<LogLine> expected{
        {QtDebugMsg, QStringLiteral("panorel"),
         QStringLiteral("ReplicContext putMacrosValue  \"name\" \"Ann\"")}};
    QCOMPARE(log().take(), expected);
}

void ReplicContextTest::putsAMacroTwiceWithdrawsItOnce()
{
    ReplicContext context(m_plugin.get());
    context.putMacrosValue(QStringLiteral("x"), QStringLiteral("1"));
    context.putMacrosValue(QStringLiteral("x"), QStringLiteral("2"));
    context.clear();
    context.clear();
    QCOMPARE(m_plugin->replacer->calls,
             QStringList({QStringLiteral("set x=1"), QStringLiteral("set x=2"),
                          QStringLiteral("remove x")}));
}

void ReplicContextTest::withdrawsInAscendingOrder()
{
    ReplicContext context(m_plugin.get());
    context.putMacrosValue(QStringLiteral("b"), QStringLiteral("1"));
    context.putMacrosValue(QStringLiteral("a"), QStringLiteral("2"));
    m_plugin->replacer->calls.clear();
    log().take();

    context.clear();
    QCOMPARE(m_plugin->replacer->calls,
             QStringList({QStringLiteral("remove a"), QStringLiteral("remove b")}));
    const QString category = QStringLiteral("panorel");
    const QVector<LogLine> expected{
        {QtDebugMsg, category, QStringLiteral("ReplicContext.clear()")},
        {QtDebugMsg, category, QStringLiteral("ReplicContext remove \"a\"")},
        {QtDebugMsg, category, QStringLiteral("ReplicContext remove \"b\"")}};
    QCOMPARE(log().take(), expected);
}

void ReplicContextTest::asksForTheCurrentReplacer()
{
    ReplicContext context(m_plugin.get());
    const auto first = m_plugin->replacer;
    context.putMacrosValue(QStringLiteral("x"), QStringLiteral("1"));
    m_plugin->replacer = QSharedPointer<TestMacrosReplacer>::create();
    context.putMacrosValue(QStringLiteral("y"), QStringLiteral("2"));
    context.clear();
    QCOMPARE(first->calls, QStringList({QStringLiteral("set x=1")}));
    QCOMPARE(m_plugin->replacer->calls,
             QStringList({QStringLiteral("set y=2"), QStringLiteral("remove x"),
                          QStringLiteral("remove y")}));
}

void ReplicContextTest::keepsTheFirstReplacerAlive()
{
    const QWeakPointer<TestMacrosReplacer> first = m_plugin->replacer;
    {
        ReplicContext context(m_plugin.get());
        m_plugin->replacer.reset();
        QVERIFY(!first.isNull());
    }
    QVERIFY(first.isNull());
}

void ReplicContextTest::clearOfAnEmptyTableOnlyLogs()
{
    ReplicContext context(m_plugin.get());
    context.clear();
    QCOMPARE(log().takeTexts(QStringLiteral("panorel")),
             QStringList({QStringLiteral("ReplicContext.clear()")}));
    QCOMPARE(m_plugin->replacer->calls, QStringList());
}

void ReplicContextTest::destructorWithdrawsNothing()
{
    {
        ReplicContext context(m_plugin.get());
        context.putMacrosValue(QStringLiteral("x"), QStringLiteral("1"));
    }
    QCOMPARE(m_plugin->replacer->calls, QStringList({QStringLiteral("set x=1")}));
}

void ReplicContextTest::livesWithoutAReplacer()
{
    const auto later = m_plugin->replacer;
    m_plugin->replacer.reset();
    ReplicContext context(m_plugin.get());
    context.putMacrosValue(QStringLiteral("x"), QStringLiteral("1"));
    // The table was kept all the same.
    m_plugin->replacer = later;
    context.clear();
    QCOMPARE(later->calls, QStringList({QStringLiteral("remove x")}));
}

void ReplicContextTest::livesWithoutAPlugin()
{
    ReplicContext context(nullptr);
    QVERIFY(context.getReplic(Replica::Plain, {}, true, true, {}).isNull());
    QVERIFY(context.getAppReplic(QStringLiteral("x"), {}, true, true, {}).isNull());
    context.putMacrosValue(QStringLiteral("x"), QStringLiteral("1"));
    context.clear();
}

QTEST_GUILESS_MAIN(ReplicContextTest)
#include "tst_repliccontext.moc"
