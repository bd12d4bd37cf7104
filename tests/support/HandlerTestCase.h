#pragma once

#include "panorel/PanorelQueueBrocker.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/TestCase.h"
#include "tests/support/TestPlugin.h"

#include <QDebug>

/// Base of the handler tests: a real broker, a host whose calls are kept, and the handler's replies.
/// A test function fails when it leaves a host call or a reply that it did not take.
class HandlerTestCase : public TestCase
{
    Q_OBJECT

protected:
    /// Puts a handler on the broker under its topic, which has to be @p topic.
    template <typename Handler>
    void subscribe(Handler *handler, const QString &topic)
    {
        QCOMPARE(handler->topic(), topic);
        m_topic = topic;
        m_brocker->subscribe(topic, handler);
        log().skipDebug();
    }

    panorel::PanorelQueueBrocker *brocker() { return m_brocker.get(); }
    TestPlugin *plugin() { return m_plugin.get(); }
    MessageRecorder &replies() { return m_replies; }

    /// Watches the handler's replies.
    void watch(const QString &topic) { m_replies.watch(m_brocker.get(), {topic}); }

    /// Publishes a request of the page and takes two lines from the log: the broker's, and the one
    /// that the handler begins with. @p className is empty for a handler that writes none.
    void request(const QVariantMap &attributes, const QString &className)
    {
        const panorel::Message message(m_topic, attributes);
        QString json;
        QDebug(&json).nospace() << message.toJson();
        m_brocker->publish(message);
        const QString category = QStringLiteral("panorel");
        QCOMPARE(log().takeFirst(), (LogLine{QtDebugMsg, category, json}));
        if (className.isEmpty())
            return;
        QCOMPARE(log().takeFirst(),
                 (LogLine{QtDebugMsg, category, className + QLatin1Char(' ') + json}));
    }

    QVector<HostCall> takeCalls()
    {
        QVector<HostCall> calls;
        calls.swap(m_plugin->calls);
        return calls;
    }

    void setUp() override
    {
        m_replies.clear(); // what a test left that failed
        m_plugin = std::make_unique<TestPlugin>();
        m_brocker = std::make_unique<panorel::PanorelQueueBrocker>();
    }

    void tearDown() override
    {
        m_brocker.reset();
        QVERIFY(m_replies.isEmpty());
        QCOMPARE(m_plugin->calls, QVector<HostCall>());
        m_plugin.reset();
    }

private:
    std::unique_ptr<TestPlugin> m_plugin;
    std::unique_ptr<panorel::PanorelQueueBrocker> m_brocker;
    MessageRecorder m_replies;
    QString m_topic;
};
