#pragma once

#include "tests/support/HandlerTestCase.h"
#include "tests/support/PageRequest.h"

#include <functional>
#include <thread>

/// Base of the tests of what drives a device. Messages and calls are compared as texts; the text of
/// a message shows the types of its values, too.
class DeviceTestCase : public HandlerTestCase
{
    Q_OBJECT

protected:
    /// Puts @p handler on the broker under @p topic. Its requests are logged under @p className;
    /// empty for a handler that logs none.
    template <typename Handler>
    void install(Handler *handler, const QString &topic, const QString &className)
    {
        m_request = topic;
        m_className = className;
        subscribe(handler, topic);
    }

    /// A message as published() gives it.
    static QString text(const QString &topic, const QVariantMap &attributes = {})
    {
        return topic + QLatin1Char(' ') + debugText(attributes);
    }

    /// Publishes the page's request. Gives what it made the handler publish; nothing else may have
    /// been logged.
    QStringList ask(const QByteArray &json = "{}")
    {
        request(fromPage(json), m_className);
        return published();
    }

    /// Takes what was published and its lines in the log, which may hold no others.
    QStringList published()
    {
        const QVector<LogLine> lines = log().take();
        QVector<LogLine> expected;
        QStringList texts = takeReplies(&expected);
        if (lines != expected)
            QTest::qFail(qPrintable(QStringLiteral("the log does not hold just the messages of ")
                                    + debugText(texts)),
                         __FILE__, __LINE__);
        return texts;
    }

    /// Publishes the page's request when more than a reply goes on; heard() gives what came of it.
    void send(const QByteArray &json = "{}")
    {
        brocker()->publish(panorel::Message(m_request, fromPage(json)));
    }

    /// Takes what was published, whatever was logged beside it.
    QStringList heard()
    {
        log().skipDebug();
        QVector<LogLine> lines;
        return takeReplies(&lines);
    }

    /// Takes the host's calls, as texts such as "name(1, true)".
    QStringList done()
    {
        QStringList texts;
        const QVector<HostCall> calls = takeCalls();
        for (const HostCall &call : calls) {
            QStringList arguments;
            for (const QVariant &argument : call.arguments)
                arguments.append(argument.toString());
            texts.append(
                QStringLiteral("%1(%2)").arg(call.name, arguments.join(QStringLiteral(", "))));
        }
        return texts;
    }

    /// Calls @p action inside the delivery of the next message of @p topic.
    void during(const QString &topic, const std::function<void()> &action)
    {
        const auto pending = std::make_shared<bool>(true);
        brocker()->subscribe(topic, [pending, action](const panorel::Message &) {
            if (std::exchange(*pending, false))
                action();
        });
    }

    /// What a device calls the next time that it is called; once.
    std::function<void()> once(const std::function<void()> &action) const
    {
        const auto pending = std::make_shared<bool>(true);
        return [pending, action] {
            if (std::exchange(*pending, false))
                action();
        };
    }

    static void inAnotherThread(const std::function<void()> &action) { std::thread(action).join(); }

    /// Rows: what the page may send as a truth value, and how it reads.
    static void addTruthValues()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<bool>("truth");
        const auto row = [](const char *value, bool truth) {
            QTest::newRow(value) << QByteArray(value) << truth;
        };
        row("true", true);
        row("false", false);
        row("null", false);
        row("1", true);
        row("0", false);
        row("0.5", true);
        row("-1", true);
        row("\"true\"", true);
        row("\"no\"", true);
        row("\"FALSE\"", false);
        row("\"0\"", false);
        row("\"\"", false);
        row("[true]", false);
        row("{\"a\": true}", false);
    }

    /// Rows: what the page may send as an integer, how it reads, and its lower 16 and 8 bits.
    static void addIntegers()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<int>("number");
        QTest::addColumn<int>("lower16");
        QTest::addColumn<int>("lower8");
        const auto row = [](const char *value, int number, int lower16, int lower8) {
            QTest::newRow(value) << QByteArray(value) << number << lower16 << lower8;
        };
        row("0", 0, 0, 0);
        row("7", 7, 7, 7);
        row("255", 255, 255, 255);
        row("256", 256, 256, 0);
        row("300", 300, 300, 44);
        row("65535", 65535, 65535, 255);
        row("65536", 65536, 0, 0);
        row("70000", 70000, 4464, 112);
        row("2147483647", 2147483647, 65535, 255);
        row("-1", -1, 65535, 255);
        row("-300", -300, 65236, 212);
        row("-2147483648", std::numeric_limits<int>::min(), 0, 0);
        row("2147483649", std::numeric_limits<int>::min() + 1, 1, 1); // 32 bits count
        row("4294967301", 5, 5, 5);
        row("2.4", 2, 2, 2);
        row("2.6", 3, 3, 3);
        row("-0.4", 0, 0, 0);
        row("\"12\"", 12, 12, 12);
        row("\"70000\"", 70000, 4464, 112);
        row("\"-1\"", -1, 65535, 255);
        row("\"2.6\"", 0, 0, 0);
        row("\"twelve\"", 0, 0, 0);
        row("\"\"", 0, 0, 0);
        row("true", 1, 1, 1);
        row("false", 0, 0, 0);
        row("null", 0, 0, 0);
        row("[7]", 0, 0, 0);
        row("{\"a\": 7}", 0, 0, 0);
    }

    /// Rows: numbers that no integer holds. What they read as is Qt's business.
    static void addNumbersOutOfRange()
    {
        QTest::addColumn<QByteArray>("value");
        for (const char *value : {"1e18", "1e19", "1e300", "-1e300"})
            QTest::newRow(value) << QByteArray(value);
    }

private:
    QStringList takeReplies(QVector<LogLine> *lines)
    {
        QStringList texts;
        while (!replies().isEmpty()) {
            const panorel::Message reply = replies().take();
            if (reply.id().isNull() || m_ids.contains(reply.id()))
                QTest::qFail("a message has no id of its own", __FILE__, __LINE__);
            m_ids.append(reply.id());
            texts.append(text(reply.type(), reply.attributes()));
            lines->append({QtDebugMsg, QStringLiteral("panorel"), debugText(reply.toJson())});
        }
        return texts;
    }

    QString m_request;
    QString m_className;
    QVector<QUuid> m_ids; // of all messages taken so far
};
