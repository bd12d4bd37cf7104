#include "panorel/handlers/PrintStateHandler.h"

#include "panorel/handlers/PrintHandler.h"
#include "tests/handlers/PrinterTestCase.h"

using panorel::Message;
using panorel::PrintHandler;
using panorel::PrintStateHandler;

class PrintStateHandlerTest : public PrinterTestCase
{
    Q_OBJECT

private:
    void create(PluginInterface *host) override
    {
        watch(m_info);
        install(new PrintStateHandler(host, brocker()), QStringLiteral("printer.state"), QString());
    }

    QStringList said(const QString &state) const
    {
        return {text(m_info, {{QStringLiteral("state"), state}})};
    }
    QStringList said(const QString &state, int errorCode, const QString &errorMessage) const
    {
        return {text(m_info,
                     {{QStringLiteral("state"), state},
                      {QStringLiteral("error_code"), errorCode},
                      {QStringLiteral("error_message"), errorMessage}})};
    }

    const QString m_info = QStringLiteral("printer.state.info");
    const QString m_isConnected = QStringLiteral("printer.isConnected()");
    const QString m_idle = QStringLiteral("IDLE");
    const QString m_notConnected = QStringLiteral("NOT_CONNECTED");
    const QString m_noPaper = QStringLiteral("NO_PAPER");

private Q_SLOTS:
    void tellsAnIdlePrinter_data();
    void tellsAnIdlePrinter();
    void tellsOtherStates_data();
    void tellsOtherStates();
    void tellsErrors_data();
    void tellsErrors();
    void readsIgnoreNotConnected_data();
    void readsIgnoreNotConnected();
    void keepsTheErrorThroughStates();
    void hearsErrorAndStateInAnyOrder();
    void publishesNothingOnSignals();
    void hearsSignalsOfAnotherThread();
    void registersTheState();
    void hearsEachHandlerItself();
    void answersWithoutAPrinter_data();
    void answersWithoutAPrinter();
    void keepsToItsPrinter();
    void survivesClearingInAReply();
    void survivesClearingInTheQuery();
    void hearsNothingOnceDeleted();
    void survivesAPrinterThatPartsWithSignals();
};

void PrintStateHandlerTest::tellsAnIdlePrinter_data()
{
    QTest::addColumn<bool>("announced");
    QTest::addColumn<bool>("connected");
    QTest::addColumn<QString>("state");
    QTest::newRow("at first") << false << true << m_idle;
    QTest::newRow("at first, not connected") << false << false << m_notConnected;
    QTest::newRow("announced") << true << true << m_idle;
    QTest::newRow("announced, not connected") << true << false << m_notConnected;
}

void PrintStateHandlerTest::tellsAnIdlePrinter()
{
    QFETCH(bool, announced);
    QFETCH(bool, connected);
    QFETCH(QString, state);
    create(plugin());
    if (announced) {
        announce(1, 0);
        announce(0, 5, QStringLiteral("not told"));
    }
    printer().connected = connected;
    QCOMPARE(ask(), said(state));
    QCOMPARE(done(), QStringList{m_isConnected});
}

void PrintStateHandlerTest::tellsOtherStates_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("name");
    QTest::newRow("in process") << 1 << QStringLiteral("IN_PROCESS");
    QTest::newRow("not connected") << 3 << m_notConnected;
    QTest::newRow("next") << 4 << QString();
    QTest::newRow("below") << -1 << QString();
    QTest::newRow("high") << 0x10002 << QString();
    QTest::newRow("lowest") << std::numeric_limits<int>::min() << QString();
}

void PrintStateHandlerTest::tellsOtherStates()
{
    QFETCH(int, state);
    QFETCH(QString, name);
    const QStringList expected = name.isEmpty() ? QStringList() : said(name);
    create(plugin());
    announce(state, 1, QStringLiteral("not told"));
    for (const bool connected : {true, false}) {
        printer().connected = connected;
        QCOMPARE(ask(), expected);
        QCOMPARE(ask(R"({"ignore_not_connected": true})"), expected);
    }
    QCOMPARE(done(), QStringList()); // only an idle printer is asked
}

void PrintStateHandlerTest::tellsErrors_data()
{
    QTest::addColumn<int>("errorCode");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("name");
    const auto row = [](int errorCode, const QString &message, const char *name) {
        QTest::newRow(QByteArray::number(errorCode).constData())
            << errorCode << message << QString::fromLatin1(name);
    };
    row(1, QStringLiteral("out of paper"), "NO_PAPER");
    row(2, QString(), "LOW_PAPER");
    row(0, QStringLiteral("?"), "ERROR");
    row(3, QStringLiteral("three"), "ERROR");
    row(7, QStringLiteral("Бумага \"застряла\"\n"), "ERROR");
    row(-1, QStringLiteral("minus one"), "ERROR");
    row(std::numeric_limits<int>::max(), QStringLiteral("high"), "ERROR");
    row(std::numeric_limits<int>::min(), QStringLiteral("low"), "ERROR");
}

void PrintStateHandlerTest::tellsErrors()
{
    QFETCH(int, errorCode);
    QFETCH(QString, message);
    QFETCH(QString, name);
    create(plugin());
    announce(2, errorCode, message);
    for (const bool connected : {true, false}) {
        printer().connected = connected;
        QCOMPARE(ask(), said(name, errorCode, message));
        QCOMPARE(ask(R"({"ignore_not_connected": true})"), said(name, errorCode, message));
    }
    QCOMPARE(done(), QStringList());
}

void PrintStateHandlerTest::readsIgnoreNotConnected_data() { addTruthValues(); }

void PrintStateHandlerTest::readsIgnoreNotConnected()
{
    QFETCH(QByteArray, value);
    QFETCH(bool, truth);
    create(plugin());
    printer().connected = false;
    QCOMPARE(ask("{\"ignore_not_connected\": " + value + '}'),
             said(truth ? m_idle : m_notConnected));
    QCOMPARE(done(), truth ? QStringList{} : QStringList{m_isConnected});
}

void PrintStateHandlerTest::keepsTheErrorThroughStates()
{
    const QString message = QStringLiteral("out of paper");
    create(plugin());
    announce(2, 1, message);
    Q_EMIT printer().signalState(PrinterState::Idle);
    QCOMPARE(ask(), said(m_idle));
    Q_EMIT printer().signalState(PrinterState::Error);
    QCOMPARE(ask(), said(m_noPaper, 1, message));
    QCOMPARE(ask(), said(m_noPaper, 1, message)); // asking changes nothing
    Q_EMIT printer().signalError(0, QString());
    QCOMPARE(ask(), said(QStringLiteral("ERROR"), 0, QString()));
    QCOMPARE(done(), QStringList{m_isConnected});
}

void PrintStateHandlerTest::hearsErrorAndStateInAnyOrder()
{
    create(plugin());
    Q_EMIT printer().signalState(PrinterState::Error);
    QCOMPARE(ask(), said(QStringLiteral("ERROR"), 0, QString())); // no error was announced
    Q_EMIT printer().signalState(PrinterState::InProcess);
    Q_EMIT printer().signalError(1, QStringLiteral("none"));
    QCOMPARE(ask(), said(QStringLiteral("IN_PROCESS"))); // an error alone is no state
    Q_EMIT printer().signalState(PrinterState::Error);
    QCOMPARE(ask(), said(m_noPaper, 1, QStringLiteral("none")));
}

void PrintStateHandlerTest::publishesNothingOnSignals()
{
    create(plugin());
    for (const int state : {2, 0, 1, 3, 9})
        announce(state, state, QStringLiteral("text"));
    QCOMPARE(published(), QStringList());
}

void PrintStateHandlerTest::hearsSignalsOfAnotherThread()
{
    create(plugin());
    announce(2, 7, QStringLiteral("old"));
    inAnotherThread([this] { announce(1, 1, QStringLiteral("none")); });
    // Not before the event loop turns.
    QCOMPARE(ask(), said(QStringLiteral("ERROR"), 7, QStringLiteral("old")));
    turnEventLoop();
    QCOMPARE(ask(), said(QStringLiteral("IN_PROCESS")));
    Q_EMIT printer().signalState(PrinterState::Error);
    QCOMPARE(ask(), said(m_noPaper, 1, QStringLiteral("none")));
}

void PrintStateHandlerTest::registersTheState()
{
    create(plugin());
    QVERIFY(QMetaType::type("PrinterState") != QMetaType::UnknownType);
}

void PrintStateHandlerTest::hearsEachHandlerItself()
{
    const QString print = QStringLiteral("printer.print");
    watch(QStringLiteral("printer.nopaper"));
    brocker()->subscribe(print, new PrintHandler(plugin(), brocker()));
    announce(2, 1, QStringLiteral("none"));
    create(plugin()); // knows nothing of what was announced before it came
    QCOMPARE(ask(), said(m_idle));
    brocker()->publish(Message(print));
    QCOMPARE(heard(), QStringList{text(QStringLiteral("printer.nopaper"))});
    Q_EMIT printer().signalState(PrinterState::InProcess);
    QCOMPARE(ask(), said(QStringLiteral("IN_PROCESS")));
    done();
}

void PrintStateHandlerTest::answersWithoutAPrinter_data()
{
    QTest::addColumn<bool>("host");
    QTest::newRow("no printer") << true;
    QTest::newRow("no host") << false;
}

void PrintStateHandlerTest::answersWithoutAPrinter()
{
    QFETCH(bool, host);
    plugin()->printerDevice.reset();
    create(host ? plugin() : nullptr);
    QCOMPARE(ask(), said(m_notConnected));
    QCOMPARE(ask(R"({"ignore_not_connected": true})"), said(m_idle));
    plugin()->printerDevice = newPrinter(); // too late
    announce(1, 1);
    QCOMPARE(ask(), said(m_notConnected));
}

void PrintStateHandlerTest::keepsToItsPrinter()
{
    create(plugin());
    const QWeakPointer<TestPrinter> first = plugin()->printerDevice;
    plugin()->printerDevice = newPrinter();
    plugin()->printerDevice->connected = false;
    announce(1, 1);
    QCOMPARE(ask(), said(m_idle));
    QCOMPARE(done(), QStringList{m_isConnected});
    plugin()->printerDevice.reset();
    QVERIFY(first);
    Q_EMIT first.toStrongRef()->signalState(PrinterState::InProcess);
    QCOMPARE(ask(), said(QStringLiteral("IN_PROCESS")));
    brocker()->clear();
    QVERIFY(!first);
}

void PrintStateHandlerTest::survivesClearingInAReply()
{
    create(plugin());
    announce(2, 1, QStringLiteral("none"));
    during(m_info, [this] {
        brocker()->clear();
        create(plugin());
        announce(2, 7, QStringLiteral("meanwhile"));
    });
    send();
    QCOMPARE(heard(), said(m_noPaper, 1, QStringLiteral("none")));
    QCOMPARE(ask(), said(QStringLiteral("ERROR"), 7, QStringLiteral("meanwhile")));
}

void PrintStateHandlerTest::survivesClearingInTheQuery()
{
    create(plugin());
    printer().duringCall = once([this] { brocker()->clear(); });
    send();
    QCOMPARE(heard(), QStringList()); // nobody is left
    create(plugin());
    printer().duringCall = once([this] {
        announce(1, 1); // too late for this answer
        brocker()->clear();
        create(plugin());
    });
    send();
    QCOMPARE(heard(), said(m_idle));
    QCOMPARE(done(), QStringList({m_isConnected, m_isConnected}));
}

void PrintStateHandlerTest::hearsNothingOnceDeleted() { signalToADeletedHandler(); }

void PrintStateHandlerTest::survivesAPrinterThatPartsWithSignals() { partWithThePrinter(); }

QTEST_GUILESS_MAIN(PrintStateHandlerTest)
#include "tst_printstatehandler.moc"
