#include "tests/handlers/DispenserTestCase.h"

class DispenserHandlerTest : public DispenserTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void issuesACard_data();
    void issuesACard();
    void readsIgnoreNotConnected_data();
    void readsIgnoreNotConnected();
    void answersWithoutADispenser_data();
    void answersWithoutADispenser();
    void tellsTheStatusInsideARequest();
    void keepsToItsDispenser();
    void survivesClearingInAReply();
    void survivesClearingInACall();
};

void DispenserHandlerTest::issuesACard_data()
{
    QTest::addColumn<bool>("connected");
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QStringList>("answers");
    QTest::addColumn<QStringList>("calls");
    const QByteArray ignoring = R"({"ignore_not_connected": true})";
    QTest::newRow("connected") << true << QByteArray("{}") << QStringList{}
                               << QStringList{m_isConnected, m_issueCard};
    QTest::newRow("not connected") << false << QByteArray("{}") << QStringList{text(m_notConnected)}
                                   << QStringList{m_isConnected};
    QTest::newRow("ignored") << false << ignoring << QStringList{} << QStringList{m_issueCard};
    QTest::newRow("connected, ignored")
        << true << ignoring << QStringList{} << QStringList{m_issueCard};
}

void DispenserHandlerTest::issuesACard()
{
    QFETCH(bool, connected);
    QFETCH(QByteArray, json);
    QFETCH(QStringList, answers);
    QFETCH(QStringList, calls);
    create(plugin());
    dispenser().connected = connected;
    QCOMPARE(ask(json), answers);
    QCOMPARE(done(), calls);
}

void DispenserHandlerTest::readsIgnoreNotConnected_data() { addTruthValues(); }

void DispenserHandlerTest::readsIgnoreNotConnected()
{
    QFETCH(QByteArray, value);
    QFETCH(bool, truth);
    create(plugin());
    dispenser().connected = false;
    QCOMPARE(ask("{\"ignore_not_connected\": " + value + '}'),
             truth ? QStringList{} : QStringList{text(m_notConnected)});
    QCOMPARE(done(), QStringList{truth ? m_issueCard : m_isConnected});
}

void DispenserHandlerTest::answersWithoutADispenser_data()
{
    QTest::addColumn<bool>("host");
    QTest::addColumn<QByteArray>("json");
    for (const char *json : {"{}", R"({"ignore_not_connected": true})"}) {
        QTest::addRow("no dispenser, %s", json) << true << QByteArray(json);
        QTest::addRow("no host, %s", json) << false << QByteArray(json);
    }
}

void DispenserHandlerTest::answersWithoutADispenser()
{
    QFETCH(bool, host);
    QFETCH(QByteArray, json);
    plugin()->dispenser.reset();
    create(host ? plugin() : nullptr);
    QCOMPARE(ask(json), QStringList{text(m_noDispenser)});
    plugin()->dispenser = newDispenser(); // too late
    QCOMPARE(ask(json), QStringList{text(m_noDispenser)});
    QCOMPARE(report(0xFFFF), QStringList());
}

void DispenserHandlerTest::tellsTheStatusInsideARequest()
{
    create(plugin());
    dispenser().duringCall = [this] { Q_EMIT dispenser().statusChanged(0x0804); };
    send();
    QCOMPARE(heard(), messages(0x0804) + messages(0x0804)); // in the query, and when issuing
    QCOMPARE(done(), QStringList({m_isConnected, m_issueCard}));
}

void DispenserHandlerTest::keepsToItsDispenser()
{
    create(plugin());
    const QWeakPointer<TestDispenser> first = plugin()->dispenser;
    plugin()->dispenser = newDispenser();
    plugin()->dispenser->connected = false;
    QCOMPARE(ask(), QStringList());
    QCOMPARE(done(), QStringList({m_isConnected, m_issueCard}));
    QCOMPARE(report(0x8000), QStringList());
    plugin()->dispenser.reset();
    QVERIFY(first);
    Q_EMIT first.toStrongRef()->statusChanged(0x0008);
    QCOMPARE(heard(), messages(0x0008));
    brocker()->clear();
    QVERIFY(!first);
}

void DispenserHandlerTest::survivesClearingInAReply()
{
    create(plugin());
    dispenser().connected = false;
    during(m_notConnected, [this] {
        brocker()->clear();
        create(plugin());
        Q_EMIT dispenser().statusChanged(0x0008);
    });
    send();
    QCOMPARE(heard(), messages(0x8000) + messages(0x0008)); // told once, by the successor
    QCOMPARE(done(), QStringList{m_isConnected});

    plugin()->dispenser.reset();
    brocker()->clear();
    create(plugin());
    during(m_noDispenser, [this] { brocker()->clear(); });
    send();
    QCOMPARE(heard(), QStringList{text(m_noDispenser)});
}

void DispenserHandlerTest::survivesClearingInACall()
{
    const auto renew = [this] {
        brocker()->clear();
        create(plugin());
        Q_EMIT dispenser().statusChanged(0x0001);
    };
    create(plugin());
    dispenser().duringCall = once(renew);
    send();
    QCOMPARE(heard(), messages(0x0001)); // told once, by the successor
    QCOMPARE(done(), QStringList({m_isConnected, m_issueCard}));

    dispenser().duringCall = once(renew);
    send(R"({"ignore_not_connected": true})");
    QCOMPARE(heard(), messages(0x0001));
    QCOMPARE(done(), QStringList{m_issueCard});

    dispenser().connected = false;
    dispenser().duringCall = once([this] { brocker()->clear(); });
    send();
    QCOMPARE(heard(), QStringList()); // nobody is left
    QCOMPARE(done(), QStringList{m_isConnected});
}

QTEST_GUILESS_MAIN(DispenserHandlerTest)
#include "tst_dispenserhandler.moc"
