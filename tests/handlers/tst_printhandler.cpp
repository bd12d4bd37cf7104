#include "panorel/handlers/PrintHandler.h"

#include "tests/handlers/PrinterTestCase.h"

using panorel::PrintHandler;

class PrintHandlerTest : public PrinterTestCase
{
    Q_OBJECT

private:
    void create(PluginInterface *host) override
    {
        for (const QString &topic : {m_success, m_error, m_noPaper, m_lowPaper, m_noPrinter})
            watch(topic);
        install(new PrintHandler(host, brocker()), QStringLiteral("printer.print"), QString());
    }
    void renew()
    {
        brocker()->clear();
        create(plugin());
    }

    static QStringList said(const QStringList &topics)
    {
        QStringList texts;
        for (const QString &topic : topics)
            texts.append(text(topic));
        return texts;
    }

    const QString m_success = QStringLiteral("printer.success");
    const QString m_error = QStringLiteral("printer.error");
    const QString m_noPaper = QStringLiteral("printer.nopaper");
    const QString m_lowPaper = QStringLiteral("printer.paper.low");
    const QString m_noPrinter = QStringLiteral("printer.noprinter");
    const QString m_isConnected = QStringLiteral("printer.isConnected()");
    const QString m_print = QStringLiteral("printer.print(%1)").arg(panorel::paths::printPicture());

private Q_SLOTS:
    void answersWhatThePrinterSays_data();
    void answersWhatThePrinterSays();
    void asksForTheConnectionFirst_data();
    void asksForTheConnectionFirst();
    void readsIgnoreNotConnected_data();
    void readsIgnoreNotConnected();
    void keepsTheErrorThroughStates();
    void publishesNothingOnSignals();
    void hearsSignalsOfAnotherThread();
    void heedsWhatThePrinterSaysInTheQuery();
    void hearsEachHandlerItself();
    void answersWithoutAPrinter_data();
    void answersWithoutAPrinter();
    void answersWithoutAHost();
    void keepsToItsPrinter();
    void survivesClearingInAReply_data();
    void survivesClearingInAReply();
    void survivesClearingInACall_data();
    void survivesClearingInACall();
    void servesARequestInsideAnother();
    void hearsNothingOnceDeleted();
    void survivesAPrinterThatPartsWithSignals();
};

void PrintHandlerTest::answersWhatThePrinterSays_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("errorCode");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QStringList>("topics");
    QTest::newRow("idle") << 0 << 0 << true << QStringList{m_success};
    QTest::newRow("idle, refused") << 0 << 0 << false << QStringList{m_error};
    QTest::newRow("idle, old error") << 0 << 1 << true << QStringList{m_success};
    QTest::newRow("in process") << 1 << 1 << true << QStringList{m_success};
    QTest::newRow("in process, refused") << 1 << 0 << false << QStringList{m_error};
    QTest::newRow("not connected by its state") << 3 << 1 << true << QStringList{m_success};
    QTest::newRow("unknown state") << 4 << 1 << true << QStringList{m_success};
    QTest::newRow("negative state") << -2 << 2 << true << QStringList{m_success};
    QTest::newRow("error without a code") << 2 << 0 << true << QStringList{};
    QTest::newRow("no paper") << 2 << 1 << true << QStringList{m_noPaper};
    QTest::newRow("paper low") << 2 << 2 << true << QStringList{m_lowPaper, m_success};
    QTest::newRow("paper low, refused") << 2 << 2 << false << QStringList{m_lowPaper, m_error};
    QTest::newRow("error 3") << 2 << 3 << true << QStringList{m_error};
    QTest::newRow("error 7") << 2 << 7 << true << QStringList{m_error};
    QTest::newRow("error -1") << 2 << -1 << true << QStringList{m_error};
    QTest::newRow("highest error")
        << 2 << std::numeric_limits<int>::max() << true << QStringList{m_error};
    QTest::newRow("lowest error") << 2 << std::numeric_limits<int>::min() << true
                                  << QStringList{m_error};
}

void PrintHandlerTest::answersWhatThePrinterSays()
{
    QFETCH(int, state);
    QFETCH(int, errorCode);
    QFETCH(bool, result);
    QFETCH(QStringList, topics);
    create(plugin());
    announce(state, errorCode, QStringLiteral("text"));
    printer().result = result;
    const bool prints = state != 2 || topics.contains(m_lowPaper);
    QCOMPARE(ask(), said(topics));
    QCOMPARE(done(), prints ? QStringList({m_isConnected, m_print}) : QStringList{m_isConnected});
    QCOMPARE(ask(R"({"ignore_not_connected": true})"), said(topics));
    QCOMPARE(done(), prints ? QStringList{m_print} : QStringList{});
}

void PrintHandlerTest::asksForTheConnectionFirst_data()
{
    QTest::addColumn<int>("errorCode");
    for (const int errorCode : {0, 1, 2, 7})
        QTest::newRow(QByteArray::number(errorCode).constData()) << errorCode;
}

void PrintHandlerTest::asksForTheConnectionFirst()
{
    QFETCH(int, errorCode);
    create(plugin());
    announce(2, errorCode);
    printer().connected = false;
    QCOMPARE(ask(), said({m_error}));
    QCOMPARE(done(), QStringList{m_isConnected});
}

void PrintHandlerTest::readsIgnoreNotConnected_data() { addTruthValues(); }

void PrintHandlerTest::readsIgnoreNotConnected()
{
    QFETCH(QByteArray, value);
    QFETCH(bool, truth);
    create(plugin());
    printer().connected = false;
    QCOMPARE(ask("{\"ignore_not_connected\": " + value + '}'), said({truth ? m_success : m_error}));
    QCOMPARE(done(), QStringList{truth ? m_print : m_isConnected});
}

void PrintHandlerTest::keepsTheErrorThroughStates()
{
    create(plugin());
    Q_EMIT printer().signalError(1, QString());
    QCOMPARE(ask(), said({m_success})); // an error alone is no state
    Q_EMIT printer().signalState(PrinterState::Error);
    QCOMPARE(ask(), said({m_noPaper}));
    Q_EMIT printer().signalState(PrinterState::Idle);
    QCOMPARE(ask(), said({m_success}));
    Q_EMIT printer().signalState(PrinterState::Error); // the old error once more
    QCOMPARE(ask(), said({m_noPaper}));
    Q_EMIT printer().signalError(2, QString());
    QCOMPARE(ask(), said({m_lowPaper, m_success}));
    Q_EMIT printer().signalError(0, QString());
    QCOMPARE(ask(), QStringList());
    done();
}

void PrintHandlerTest::publishesNothingOnSignals()
{
    create(plugin());
    for (const int state : {2, 0, 1, 3, 9})
        announce(state, state, QStringLiteral("text"));
    QCOMPARE(published(), QStringList());
}

void PrintHandlerTest::hearsSignalsOfAnotherThread()
{
    create(plugin());
    announce(2, 7);
    inAnotherThread([this] { announce(0, 1); });
    QCOMPARE(ask(), said({m_error})); // not before the event loop turns
    turnEventLoop();
    QCOMPARE(ask(), said({m_success}));
    Q_EMIT printer().signalState(PrinterState::Error);
    QCOMPARE(ask(), said({m_noPaper}));
    done();
}

void PrintHandlerTest::heedsWhatThePrinterSaysInTheQuery()
{
    create(plugin());
    printer().duringCall = once([this] { announce(2, 1); });
    QCOMPARE(ask(), said({m_noPaper}));
    QCOMPARE(done(), QStringList{m_isConnected});
}

void PrintHandlerTest::hearsEachHandlerItself()
{
    create(plugin());
    announce(2, 1);
    // Knows nothing of what was announced before it came.
    brocker()->subscribe(QStringLiteral("printer.print"), new PrintHandler(plugin(), brocker()));
    log().skipDebug();
    QCOMPARE(ask(), said({m_noPaper, m_success}));
    announce(2, 7);
    QCOMPARE(ask(), said({m_error, m_error}));
    done();
}

void PrintHandlerTest::answersWithoutAPrinter_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("plain") << QByteArray("{}");
    QTest::newRow("ignoring") << QByteArray(R"({"ignore_not_connected": true})");
}

void PrintHandlerTest::answersWithoutAPrinter()
{
    QFETCH(QByteArray, json);
    plugin()->printerDevice.reset();
    create(plugin());
    QCOMPARE(ask(json), said({m_noPrinter}));
    plugin()->printerDevice = newPrinter(); // too late
    QCOMPARE(ask(json), said({m_noPrinter}));
}

void PrintHandlerTest::answersWithoutAHost()
{
    create(nullptr);
    QCOMPARE(ask(), said({m_noPrinter}));
}

void PrintHandlerTest::keepsToItsPrinter()
{
    create(plugin());
    const QWeakPointer<TestPrinter> first = plugin()->printerDevice;
    announce(2, 2);
    plugin()->printerDevice = newPrinter();
    plugin()->printerDevice->connected = false;
    QCOMPARE(ask(), said({m_lowPaper, m_success}));
    QCOMPARE(done(), QStringList({m_isConnected, m_print}));
    plugin()->printerDevice.reset();
    QCOMPARE(ask(), said({m_lowPaper, m_success}));
    done();
    QVERIFY(first);
    brocker()->clear();
    QVERIFY(!first);
}

void PrintHandlerTest::survivesClearingInAReply_data()
{
    QTest::addColumn<int>("errorCode");
    QTest::addColumn<bool>("result");
    QTest::addColumn<bool>("renewed");
    QTest::addColumn<QStringList>("topics");
    for (const bool renewed : {false, true}) {
        const auto row = [renewed](const char *name, int errorCode, bool result,
                                   const QStringList &topics) {
            QTest::addRow("%s, %s", name, renewed ? "renewed" : "cleared")
                << errorCode << result << renewed << topics;
        };
        row("success", 0, true, {m_success});
        row("error", 0, false, {m_error});
        row("no paper", 1, true, {m_noPaper});
        row("general error", 5, true, {m_error});
        // The second answer reaches whom it still concerns.
        row("paper low", 2, true,
            renewed ? QStringList{m_lowPaper, m_success} : QStringList{m_lowPaper});
    }
}

void PrintHandlerTest::survivesClearingInAReply()
{
    QFETCH(int, errorCode);
    QFETCH(bool, result);
    QFETCH(bool, renewed);
    QFETCH(QStringList, topics);
    create(plugin());
    announce(errorCode == 0 ? 0 : 2, errorCode);
    printer().result = result;
    during(topics.first(), [this, renewed] {
        brocker()->clear();
        if (renewed)
            create(plugin());
        Q_EMIT printer().signalError(1, QStringLiteral("meanwhile"));
    });
    send();
    QCOMPARE(heard(), said(topics));
    const bool prints = errorCode == 0 || errorCode == 2;
    QCOMPARE(done(), prints ? QStringList({m_isConnected, m_print}) : QStringList{m_isConnected});
}

void PrintHandlerTest::survivesClearingInACall_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<bool>("result");
    QTest::newRow("in the query") << QByteArray("{}") << true;
    QTest::newRow("while printing") << QByteArray(R"({"ignore_not_connected": true})") << true;
    QTest::newRow("while refusing") << QByteArray(R"({"ignore_not_connected": true})") << false;
}

void PrintHandlerTest::survivesClearingInACall()
{
    QFETCH(QByteArray, json);
    QFETCH(bool, result);
    create(plugin());
    printer().result = result;
    printer().duringCall = once([this] { brocker()->clear(); });
    send(json);
    QCOMPARE(heard(), QStringList()); // nobody is left
    QCOMPARE(done().constLast(), m_print);

    create(plugin());
    printer().duringCall = once([this] { renew(); });
    send(json);
    QCOMPARE(heard(), said({result ? m_success : m_error}));
    QCOMPARE(done().constLast(), m_print);
}

void PrintHandlerTest::servesARequestInsideAnother()
{
    create(plugin());
    announce(2, 2);
    during(m_lowPaper, [this] {
        announce(2, 1);
        send();
    });
    send();
    QCOMPARE(heard(), said({m_lowPaper, m_noPaper, m_success}));
    QCOMPARE(done(), QStringList({m_isConnected, m_isConnected, m_print}));
}

void PrintHandlerTest::hearsNothingOnceDeleted() { signalToADeletedHandler(); }

void PrintHandlerTest::survivesAPrinterThatPartsWithSignals() { partWithThePrinter(); }

QTEST_GUILESS_MAIN(PrintHandlerTest)
#include "tst_printhandler.moc"
