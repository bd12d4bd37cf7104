#include "panorel/PanorelProxy.h"

#include "panorel/PanorelQueueBrocker.h"
#include "tests/support/CountedHandler.h"
#include "tests/support/TestCase.h"

#include <QMetaMethod>

using panorel::Message;
using panorel::PanorelProxy;
using panorel::PanorelQueueBrocker;

class PanorelProxyTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void offersItsMembersInOrder();
    void publishesBeforeReturning();
    void returnsFalseInEveryCase_data();
    void returnsFalseInEveryCase();
    void logsAMessageWithoutHandler();
    void logsJson();
    void logsTextOnOneLine();
    void dropsMessagesOnceDetached();
};

void PanorelProxyTest::offersItsMembersInOrder()
{
    const QMetaObject &meta = PanorelProxy::staticMetaObject;
    QStringList members;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        members.append(QStringLiteral("%1 %2 %3")
                           .arg(method.methodType() == QMetaMethod::Signal
                                    ? QStringLiteral("signal")
                                    : QStringLiteral("slot"),
                                QString::fromLatin1(method.typeName()),
                                QString::fromLatin1(method.methodSignature())));
    }
    QCOMPARE(members,
             QStringList({QStringLiteral("signal void message(QJsonObject)"),
                          QStringLiteral("slot bool sendMessage(QJsonObject)"),
                          QStringLiteral("slot void log_json(QString,QJsonObject)"),
                          QStringLiteral("slot void log_string(QString)")}));
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 0);
}

void PanorelProxyTest::publishesBeforeReturning()
{
    PanorelQueueBrocker brocker;
    PanorelProxy proxy(&brocker);
    QCOMPARE(proxy.brocker(), &brocker);
    QVariantMap received;
    brocker.subscribe(QStringLiteral("system.language.set"),
                      [&received](const Message &message) { received = message.attributes(); });

    QVERIFY(!proxy.sendMessage({{QStringLiteral("type"), QStringLiteral("system.language.set")},
                                {QStringLiteral("language"), QStringLiteral("en")}}));
    QCOMPARE(received,
             QVariantMap({{QStringLiteral("id"), QVariant()},
                          {QStringLiteral("language"), QStringLiteral("en")}}));
}

void PanorelProxyTest::returnsFalseInEveryCase_data()
{
    QTest::addColumn<QJsonObject>("message");
    QTest::newRow("empty") << QJsonObject();
    QTest::newRow("no type") << QJsonObject{{QStringLiteral("text"), 1}};
    QTest::newRow("unknown") << QJsonObject{{QStringLiteral("type"), QStringLiteral("x.y")}};
    QTest::newRow("known") << QJsonObject{{QStringLiteral("type"), QStringLiteral("dialog.say")}};
}

void PanorelProxyTest::returnsFalseInEveryCase()
{
    QFETCH(QJsonObject, message);
    PanorelQueueBrocker brocker;
    brocker.subscribe(QStringLiteral("dialog.say"), new CountedHandler);
    PanorelProxy proxy(&brocker);
    QCOMPARE(proxy.sendMessage(message), false);
}

void PanorelProxyTest::logsAMessageWithoutHandler()
{
    PanorelQueueBrocker brocker;
    PanorelProxy proxy(&brocker);
    proxy.sendMessage({{QStringLiteral("type"), QStringLiteral("x.y")}});
    const QVector<LogLine> expected{
        {QtDebugMsg, QStringLiteral("panorel"),
         QStringLiteral("QJsonObject({\"id\":\"{00000000-0000-0000-0000-000000000000}\","
                        "\"type\":\"x.y\"})")}};
    QCOMPARE(log().take(), expected);
}

void PanorelProxyTest::logsJson()
{
    PanorelProxy proxy(nullptr);
    proxy.log_json(QStringLiteral("state"), {{QStringLiteral("a"), 1}});
    const QVector<LogLine> expected{{QtDebugMsg, QStringLiteral("default"),
                                     QStringLiteral("\"state\" QJsonObject({\"a\":1})")}};
    QCOMPARE(log().take(), expected);
}

void PanorelProxyTest::logsTextOnOneLine()
{
    PanorelProxy proxy(nullptr);
    proxy.log_string(QStringLiteral("x"));
    proxy.log_string(QStringLiteral("%s %n\nforged"));
    const QVector<LogLine> expected{
        {QtDebugMsg, QStringLiteral("default"), QStringLiteral("\"x\"")},
        {QtDebugMsg, QStringLiteral("default"), QStringLiteral("\"%s %n\\nforged\"")}};
    QCOMPARE(log().take(), expected);
}

void PanorelProxyTest::dropsMessagesOnceDetached()
{
    PanorelQueueBrocker brocker;
    int received = 0;
    brocker.subscribe(QStringLiteral("dialog.say"), [&received](const Message &) { ++received; });
    PanorelProxy proxy(&brocker);
    proxy.detach();
    QVERIFY(!proxy.brocker());
    QVERIFY(!proxy.sendMessage({{QStringLiteral("type"), QStringLiteral("dialog.say")}}));
    QCOMPARE(received, 0);
}

QTEST_GUILESS_MAIN(PanorelProxyTest)
#include "tst_panorelproxy.moc"
