#pragma once

#include "panorel/handlers/DispenserHandler.h"

#include "tests/handlers/DeviceTestCase.h"

/// Base of the tests of what the page has to do with the card dispenser.
class DispenserTestCase : public DeviceTestCase
{
    Q_OBJECT

protected:
    void setUp() override
    {
        DeviceTestCase::setUp();
        plugin()->dispenser = newDispenser();
    }

    void create(PluginInterface *host)
    {
        for (const QString &topic : {m_noDispenser, m_notConnected, m_timeout, m_dispensing,
                                     m_preEmpty, m_empty, m_binFull, m_cardError, m_sensor})
            watch(topic);
        install(new panorel::DispenserHandler(host, brocker()), m_requestTopic,
                QStringLiteral("DispenserHandler"));
    }

    QSharedPointer<TestDispenser> newDispenser()
    {
        return QSharedPointer<TestDispenser>::create(&plugin()->calls);
    }

    TestDispenser &dispenser() { return *plugin()->dispenser; }

    /// Lets the dispenser report, and gives what the handler published. It has to log the word, and
    /// @p flags as its flags.
    QStringList report(int word, const QString &flags)
    {
        Q_EMIT dispenser().statusChanged(static_cast<unsigned short>(word));
        const LogLine expected{
            QtDebugMsg, QStringLiteral("default"),
            QStringLiteral("codes %1 QFlags<IDispenser::Code>(%2)").arg(word).arg(flags)};
        const LogLine line = log().takeFirst();
        if (!(line == expected))
            QTest::qFail(qPrintable(line.category + QStringLiteral(": ") + line.text), __FILE__,
                         __LINE__);
        return published();
    }

    /// The same without a look at the flags.
    QStringList report(int word)
    {
        Q_EMIT dispenser().statusChanged(static_cast<unsigned short>(word));
        return heard();
    }

    /// The messages that belong to bits, in their order.
    QStringList messages(int word) const
    {
        QStringList said;
        const auto say = [&said, word](int bits, const QString &message) {
            if (word & bits)
                said.append(message);
        };
        const auto sensorNamed = [this](const char *name) {
            return text(m_sensor, {{QStringLiteral("sensor"), QString::fromLatin1(name)}});
        };
        say(0x8000, text(m_notConnected));
        say(0x4000, text(m_timeout));
        say(0x0800, text(m_dispensing));
        say(0x0010, text(m_preEmpty));
        say(0x0008, text(m_empty));
        say(0x1000, text(m_binFull));
        say(0x0360, text(m_cardError));
        say(0x0004, sensorNamed("DispSensor"));
        say(0x0002, sensorNamed("CaptSensor2"));
        say(0x0001, sensorNamed("CaptSensor1"));
        return said;
    }

    const QString m_requestTopic = QStringLiteral("dispenser.dispense");
    const QString m_noDispenser = QStringLiteral("dispenser.nodispenser");
    const QString m_notConnected = QStringLiteral("dispenser.not.connected");
    const QString m_timeout = QStringLiteral("dispenser.communication.timeout");
    const QString m_dispensing = QStringLiteral("dispenser.card.dispensing");
    const QString m_preEmpty = QStringLiteral("dispenser.card.preempty");
    const QString m_empty = QStringLiteral("dispenser.card.empty");
    const QString m_binFull = QStringLiteral("dispenser.cardbin.full");
    const QString m_cardError = QStringLiteral("dispenser.card.error");
    const QString m_sensor = QStringLiteral("dispenser.sensor");
    const QString m_isConnected = QStringLiteral("dispenser.isConnected()");
    const QString m_issueCard = QStringLiteral("dispenser.issueCard(4)");
};
