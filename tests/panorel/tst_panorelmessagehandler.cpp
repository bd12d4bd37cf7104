#include "panorel/PanorelMessageHandler.h"

#include "panorel/PanorelProxy.h"
#include "panorel/PanorelQueueBrocker.h"
#include "tests/support/TestCase.h"
#include "tests/support/Topics.h"

#include <QSignalSpy>

using panorel::Message;
using panorel::PanorelMessageHandler;
using panorel::PanorelProxy;
using panorel::PanorelQueueBrocker;

class PanorelMessageHandlerTest : public TestCase
{
    Q_OBJECT

private:
    void setUp() override
    {
        makesUpMessages(); // it forwards whatever they hold
        m_brocker = std::make_unique<PanorelQueueBrocker>();
        m_proxy = std::make_unique<PanorelProxy>(m_brocker.get());
    }
    void tearDown() override
    {
        m_brocker.reset();
        m_proxy.reset();
    }

    std::unique_ptr<PanorelQueueBrocker> m_brocker;
    std::unique_ptr<PanorelProxy> m_proxy;

private Q_SLOTS:
    void subscribesItselfInOrder();
    void forwardsEachTopicOnce_data();
    void forwardsEachTopicOnce();
    void keepsOtherTopicsInside_data();
    void keepsOtherTopicsInside();
    void forwardsTheWholeEnvelope();
    void logsNothingItself();
    void isDeletedWithTheBroker();
};

void PanorelMessageHandlerTest::subscribesItselfInOrder()
{
    const QStringList topics = forwardedTopics();
    QStringList expected;
    for (const QString &topic : topics)
        expected.append(QStringLiteral("Subsctribe default handler \"%1\"").arg(topic));
    QCOMPARE(expected.size(), 65);
    new PanorelMessageHandler(m_proxy.get());
    QCOMPARE(log().takeTexts(QStringLiteral("panorel")), expected);
    QCOMPARE(PanorelMessageHandler::topics(), forwardedTopics());
}

void PanorelMessageHandlerTest::forwardsEachTopicOnce_data()
{
    QTest::addColumn<QString>("topic");
    const QStringList topics = forwardedTopics();
    for (const QString &topic : topics)
        QTest::newRow(qPrintable(topic)) << topic;
}

void PanorelMessageHandlerTest::forwardsEachTopicOnce()
{
    QFETCH(QString, topic);
    new PanorelMessageHandler(m_proxy.get());
    QSignalSpy spy(m_proxy.get(), &PanorelProxy::message);
    m_brocker->publish(Message(topic));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.first().first().toJsonObject().value(QStringLiteral("type")).toString(), topic);
}

void PanorelMessageHandlerTest::keepsOtherTopicsInside_data()
{
    QTest::addColumn<QString>("topic");
    const QStringList topics = topicsKeptInside();
    QCOMPARE(topics.size(), 31);
    for (const QString &topic : topics)
        QTest::newRow(qPrintable(topic)) << topic;
}

void PanorelMessageHandlerTest::keepsOtherTopicsInside()
{
    QFETCH(QString, topic);
    new PanorelMessageHandler(m_proxy.get());
    QSignalSpy spy(m_proxy.get(), &PanorelProxy::message);
    m_brocker->publish(Message(topic));
    QCOMPARE(spy.count(), 0);
}

void PanorelMessageHandlerTest::forwardsTheWholeEnvelope()
{
    new PanorelMessageHandler(m_proxy.get());
    QSignalSpy spy(m_proxy.get(), &PanorelProxy::message);
    const Message message(QStringLiteral("printer.success"), {{QStringLiteral("pages"), 2}});
    m_brocker->publish(message);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.first().first().toJsonObject(),
             QJsonObject({{QStringLiteral("id"), message.id().toString()},
                          {QStringLiteral("pages"), 2},
                          {QStringLiteral("type"), QStringLiteral("printer.success")}}));
}

void PanorelMessageHandlerTest::logsNothingItself()
{
    new PanorelMessageHandler(m_proxy.get());
    log().take();
    m_brocker->publish(Message(QStringLiteral("printer.success")));
    QCOMPARE(log().take().size(), 1); // the broker's line
}

void PanorelMessageHandlerTest::isDeletedWithTheBroker()
{
    // Subscribed 65 times, deleted once: a second time would crash.
    new PanorelMessageHandler(m_proxy.get());
    m_brocker.reset();
    QSignalSpy spy(m_proxy.get(), &PanorelProxy::message);
    QCOMPARE(spy.count(), 0);
}

QTEST_GUILESS_MAIN(PanorelMessageHandlerTest)
#include "tst_panorelmessagehandler.moc"
