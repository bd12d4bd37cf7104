#include "panorel/handlers/ScriptControlHandler.h"

#include "tests/support/HandlerTestCase.h"

using panorel::Message;
using panorel::ScriptControlHandler;

class ScriptControlHandlerTest : public HandlerTestCase
{
    Q_OBJECT

private:
    void create(PluginInterface *host)
    {
        watch(QStringLiteral("system.scripts.start.result"));
        subscribe(new ScriptControlHandler(host, brocker()),
                  QStringLiteral("system.scripts.control"));
    }

    const QString m_name = QStringLiteral("ScriptControlHandler");

private Q_SLOTS:
    void startsAndAnswers();
    void answersAnEmptyResult();
    void cancels_data();
    void cancels();
    void startsBeforeItCancels();
    void doesNothingWithoutACommand();
    void dropsRequestsWithoutAHost();
};

void ScriptControlHandlerTest::startsAndAnswers()
{
    create(plugin());
    plugin()->scriptResult = QStringList({QStringLiteral("started"), QStringLiteral("welcome")});
    request({{QStringLiteral("start"), QStringLiteral("welcome")}}, m_name);
    QCOMPARE(takeCalls(),
             QVector<HostCall>({{QStringLiteral("scriptStart"), {QStringLiteral("welcome")}}}));
    const Message reply = replies().take();
    QCOMPARE(reply.type(), QStringLiteral("system.scripts.start.result"));
    QCOMPARE(reply.attributes(), QVariantMap({{QStringLiteral("result"), plugin()->scriptResult}}));
}

void ScriptControlHandlerTest::answersAnEmptyResult()
{
    create(plugin());
    request({{QStringLiteral("start"), QVariant()}}, m_name);
    QCOMPARE(takeCalls(), QVector<HostCall>({{QStringLiteral("scriptStart"), {QString()}}}));
    QCOMPARE(replies().take().attributes(),
             QVariantMap({{QStringLiteral("result"), QStringList()}}));
}

void ScriptControlHandlerTest::cancels_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("true") << QVariant(true);
    QTest::newRow("false") << QVariant(false); // presence counts
    QTest::newRow("null") << QVariant::fromValue(nullptr);
}

void ScriptControlHandlerTest::cancels()
{
    QFETCH(QVariant, value);
    create(plugin());
    request({{QStringLiteral("stop"), value}}, m_name);
    QCOMPARE(takeCalls(), QVector<HostCall>({{QStringLiteral("scriptCancel"), {}}}));
}

void ScriptControlHandlerTest::startsBeforeItCancels()
{
    create(plugin());
    int callsAtReply = -1;
    brocker()->subscribe(
        QStringLiteral("system.scripts.start.result"),
        [this, &callsAtReply](const Message &) { callsAtReply = plugin()->calls.size(); });
    log().take();
    request({{QStringLiteral("start"), QStringLiteral("welcome")}, {QStringLiteral("stop"), true}},
            m_name);
    QCOMPARE(takeCalls(),
             QVector<HostCall>({{QStringLiteral("scriptStart"), {QStringLiteral("welcome")}},
                                {QStringLiteral("scriptCancel"), {}}}));
    replies().take();
    QCOMPARE(callsAtReply, 1); // the answer comes between the two
}

void ScriptControlHandlerTest::doesNothingWithoutACommand()
{
    makesUpAttributes({"pause"});
    create(plugin());
    request({{QStringLiteral("pause"), true}}, m_name);
}

void ScriptControlHandlerTest::dropsRequestsWithoutAHost()
{
    create(nullptr);
    request({{QStringLiteral("start"), QStringLiteral("welcome")}, {QStringLiteral("stop"), true}},
            m_name);
}

QTEST_GUILESS_MAIN(ScriptControlHandlerTest)
#include "tst_scriptcontrolhandler.moc"
