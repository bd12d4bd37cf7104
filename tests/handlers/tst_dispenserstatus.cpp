#include "tests/handlers/DispenserTestCase.h"

/// What becomes of the dispenser's status words.
class DispenserStatusTest : public DispenserTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void tellsEachBit_data();
    void tellsEachBit();
    void tellsBitsInOrder_data();
    void tellsBitsInOrder();
    void tellsAnyTwoBits();
    void repeatsARepeatedWord();
    void tellsTheStatusOfAnotherThread();
    void tellsAStatusInsideAnother();
    void toldByEachHandler();
    void endsItsWordWhenCleared_data();
    void endsItsWordWhenCleared();
    void staysSilentOnceCleared();
    void hearsNothingOnceDeleted();
    void survivesADispenserThatPartsWithAStatus();
};

void DispenserStatusTest::tellsEachBit_data()
{
    QTest::addColumn<int>("word");
    QTest::addColumn<QString>("flags");
    QTest::addColumn<QString>("topic");
    QTest::addColumn<QString>("name");
    const auto row = [](int word, const char *flags, const QString &topic, const char *name = "") {
        QTest::addRow("0x%04X", static_cast<unsigned>(word))
            << word << QString::fromLatin1(flags) << topic << QString::fromLatin1(name);
    };
    row(0x0000, "", QString());
    row(0x0001, "CaptureSensor1", m_sensor, "CaptSensor1");
    row(0x0002, "CaptureSensor2", m_sensor, "CaptSensor2");
    row(0x0004, "DispenseSensor", m_sensor, "DispSensor");
    row(0x0008, "CardEmpty", m_empty);
    row(0x0010, "CardPreEmpty", m_preEmpty);
    row(0x0020, "CardJam", m_cardError);
    row(0x0040, "CardOverlap", m_cardError);
    row(0x0080, "", QString());
    row(0x0100, "DispenseError", m_cardError);
    row(0x0200, "CaptureError", m_cardError);
    row(0x0400, "", QString());
    row(0x0800, "CardDispensing", m_dispensing);
    row(0x1000, "CardBinFull", m_binFull);
    row(0x2000, "", QString());
    row(0x4000, "CommunicationTimeout", m_timeout);
    row(0x8000, "NotConnected", m_notConnected);
}

void DispenserStatusTest::tellsEachBit()
{
    QFETCH(int, word);
    QFETCH(QString, flags);
    QFETCH(QString, topic);
    QFETCH(QString, name);
    QVariantMap attributes;
    if (!name.isEmpty())
        attributes.insert(QStringLiteral("sensor"), name);
    create(plugin());
    QCOMPARE(report(word, flags),
             topic.isEmpty() ? QStringList() : QStringList{text(topic, attributes)});
}

void DispenserStatusTest::tellsBitsInOrder_data()
{
    QTest::addColumn<int>("word");
    QTest::addColumn<QString>("flags");
    QTest::addColumn<QStringList>("topics");
    const auto row = [](int word, const char *flags, const QStringList &topics) {
        QTest::addRow("0x%04X", static_cast<unsigned>(word))
            << word << QString::fromLatin1(flags) << topics;
    };
    row(0x0058, "CardEmpty|CardPreEmpty|CardOverlap", {m_preEmpty, m_empty, m_cardError});
    row(0x0360, "CardJam|CardOverlap|DispenseError|CaptureError", {m_cardError});
    row(0x0007, "CaptureSensor1|CaptureSensor2|DispenseSensor", {m_sensor, m_sensor, m_sensor});
    row(0xC000, "CommunicationTimeout|NotConnected", {m_notConnected, m_timeout});
    row(0x2480, "", {});
    row(0x1810, "CardPreEmpty|CardDispensing|CardBinFull", {m_dispensing, m_preEmpty, m_binFull});
    row(0xFFFF,
        "CaptureSensor1|CaptureSensor2|DispenseSensor|CardEmpty|CardPreEmpty|CardJam|CardOverlap|"
        "DispenseError|CaptureError|CardDispensing|CardBinFull|CommunicationTimeout|NotConnected",
        {m_notConnected, m_timeout, m_dispensing, m_preEmpty, m_empty, m_binFull, m_cardError,
         m_sensor, m_sensor, m_sensor});
}

void DispenserStatusTest::tellsBitsInOrder()
{
    QFETCH(int, word);
    QFETCH(QString, flags);
    QFETCH(QStringList, topics);
    create(plugin());
    const QStringList said = report(word, flags);
    QCOMPARE(said, messages(word));
    QStringList saidTopics;
    for (const QString &message : said)
        saidTopics.append(message.section(QLatin1Char(' '), 0, 0));
    QCOMPARE(saidTopics, topics);
}

void DispenserStatusTest::tellsAnyTwoBits()
{
    create(plugin());
    for (int first = 1; first <= 0x8000; first <<= 1)
        for (int second = first; second <= 0x8000; second <<= 1)
            QCOMPARE(report(first | second), messages(first | second));
}

void DispenserStatusTest::repeatsARepeatedWord()
{
    create(plugin());
    for (int time = 0; time < 3; ++time)
        QCOMPARE(report(0x0009), messages(0x0009));
    QCOMPARE(report(0), QStringList());
    QCOMPARE(report(0x0008), messages(0x0008));
}

void DispenserStatusTest::tellsTheStatusOfAnotherThread()
{
    create(plugin());
    inAnotherThread([this] { Q_EMIT dispenser().statusChanged(0x4001); });
    QCOMPARE(heard(), QStringList()); // not before the event loop turns
    turnEventLoop();
    QCOMPARE(heard(), messages(0x4001));
}

void DispenserStatusTest::tellsAStatusInsideAnother()
{
    create(plugin());
    during(m_notConnected, [this] { Q_EMIT dispenser().statusChanged(0x0011); });
    QCOMPARE(report(0xC000), messages(0x8000) + messages(0x0011) + messages(0x4000));
}

void DispenserStatusTest::toldByEachHandler()
{
    create(plugin());
    brocker()->subscribe(m_requestTopic, new panorel::DispenserHandler(plugin(), brocker()));
    QCOMPARE(report(0x8010), messages(0x8010) + messages(0x8010));
}

void DispenserStatusTest::endsItsWordWhenCleared_data()
{
    QTest::addColumn<bool>("renewed");
    QTest::newRow("cleared") << false;
    QTest::newRow("renewed") << true;
}

void DispenserStatusTest::endsItsWordWhenCleared()
{
    // The successor does not hear the word that is being told.
    QFETCH(bool, renewed);
    create(plugin());
    during(m_notConnected, [this, renewed] {
        brocker()->clear();
        if (renewed)
            create(plugin());
    });
    QCOMPARE(report(0xC007), messages(renewed ? 0xC007 : 0x8000));
}

void DispenserStatusTest::staysSilentOnceCleared()
{
    create(plugin());
    const QString host = QStringLiteral("cookie.set");
    during(host, [this] {
        brocker()->clear();
        create(plugin());
        Q_EMIT dispenser().statusChanged(0x0010);
    });
    brocker()->publish(panorel::Message(host));
    QCOMPARE(log().takeTexts(QStringLiteral("default")).size(), 1); // the successor's
    QCOMPARE(heard(), messages(0x0010));
}

void DispenserStatusTest::hearsNothingOnceDeleted()
{
    create(plugin());
    inAnotherThread([this] { Q_EMIT dispenser().statusChanged(0x0010); }); // still on its way
    brocker()->clear();
    watch(m_notConnected);
    log().take();
    Q_EMIT dispenser().statusChanged(0xFFFF);
    turnEventLoop();
    QCOMPARE(published(), QStringList());
}

void DispenserStatusTest::survivesADispenserThatPartsWithAStatus()
{
    class PartingDispenser : public TestDispenser
    {
    public:
        using TestDispenser::TestDispenser;
        ~PartingDispenser() override { Q_EMIT statusChanged(0x8000); }
    };

    plugin()->dispenser = QSharedPointer<PartingDispenser>::create(&plugin()->calls);
    create(plugin());
    plugin()->dispenser.reset();
    brocker()->clear(); // the handler was the last to hold it
    QCOMPARE(heard(), QStringList());
}

QTEST_GUILESS_MAIN(DispenserStatusTest)
#include "tst_dispenserstatus.moc"
