#include "simulator/core/SimulatedSpeech.h"

#include "simulator/core/SimulatedMacrosReplacer.h"
#include "tests/support/TestCase.h"

using simulator::Pace;
using simulator::SimulatedMacrosReplacer;
using simulator::SimulatedSpeech;

class SimulatedSpeechTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void startsAndFinishes();
    void lastsAsLongAsItsText();
    void expandsMacros();
    void cancelStopsAtOnce();
    void cancelInSilenceReportsNothing();
    void newLineTakesThePlaceOfTheOldOne();
    void emptyTextIsNotSpoken();

protected:
    void setUp() override
    {
        m_events.clear();
        m_pace.setSpeed(1);
        m_replacer = QSharedPointer<SimulatedMacrosReplacer>::create();
        m_speech.reset(new SimulatedSpeech(m_replacer, m_pace));
        connect(m_speech.data(), &SimulatedSpeech::started, this,
                [this](const QString &text) { m_events.append(QStringLiteral("start ") + text); });
        connect(m_speech.data(), &SimulatedSpeech::finished, this,
                [this] { m_events.append(QStringLiteral("finish")); });
    }
    void tearDown() override { m_speech.reset(); }

private:
    Pace m_pace;
    QSharedPointer<SimulatedMacrosReplacer> m_replacer;
    QScopedPointer<SimulatedSpeech> m_speech;
    QStringList m_events;
};

void SimulatedSpeechTest::startsAndFinishes()
{
    m_pace.setSpeed(100);
    m_speech->say(QStringLiteral("Hello"));
    QVERIFY(m_speech->isSpeaking());
    QCOMPARE(m_speech->text(), QStringLiteral("Hello"));
    QCOMPARE(m_events, QStringList{QStringLiteral("start Hello")});
    QTRY_COMPARE(m_events, (QStringList{QStringLiteral("start Hello"), QStringLiteral("finish")}));
    QVERIFY(!m_speech->isSpeaking());
    QVERIFY(m_speech->text().isEmpty());
}

void SimulatedSpeechTest::lastsAsLongAsItsText()
{
    QCOMPARE(SimulatedSpeech::duration(QStringLiteral("Hi")), 600);
    QCOMPARE(SimulatedSpeech::duration(QString(20, QLatin1Char('a'))), 1200);
}

void SimulatedSpeechTest::expandsMacros()
{
    m_replacer->setMacros(QStringLiteral("name"), QStringLiteral("Anna"));
    m_speech->say(QStringLiteral("Hello %name%"));
    QCOMPARE(m_events, QStringList{QStringLiteral("start Hello Anna")});
}

void SimulatedSpeechTest::cancelStopsAtOnce()
{
    m_speech->say(QStringLiteral("Hello"));
    m_speech->cancel();
    QVERIFY(!m_speech->isSpeaking());
    QCOMPARE(m_events, (QStringList{QStringLiteral("start Hello"), QStringLiteral("finish")}));
}

void SimulatedSpeechTest::cancelInSilenceReportsNothing()
{
    m_speech->cancel();
    QVERIFY(m_events.isEmpty());
}

void SimulatedSpeechTest::newLineTakesThePlaceOfTheOldOne()
{
    m_speech->say(QStringLiteral("one"));
    m_speech->say(QStringLiteral("two"));
    QCOMPARE(m_events, (QStringList{QStringLiteral("start one"), QStringLiteral("start two")}));
    QCOMPARE(m_speech->text(), QStringLiteral("two"));
    QTRY_COMPARE(m_events.size(), 3); // one finish, when the robot falls silent
    QCOMPARE(m_events.last(), QStringLiteral("finish"));
}

void SimulatedSpeechTest::emptyTextIsNotSpoken()
{
    m_replacer->setMacros(QStringLiteral("nothing"), QString());
    m_speech->say(QString());
    m_speech->say(QStringLiteral("%nothing%"));
    QVERIFY(m_events.isEmpty());
}

QTEST_GUILESS_MAIN(SimulatedSpeechTest)

#include "tst_simulatedspeech.moc"
