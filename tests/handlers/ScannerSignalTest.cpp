#include "tests/handlers/ScannerSignalTest.h"

using Fields = QMap<QString, QString>;

void ScannerSignalTest::tellsErrors_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("codeText");
    QTest::addColumn<QString>("errorText");
    QTest::newRow("5") << 5 << "5"
                       << "no document";
    QTest::newRow("0") << 0 << "0"
                       << "";
    QTest::newRow("-17") << -17 << "-17" << QStringLiteral("Ошибка \"17\"\n");
    QTest::newRow("highest") << std::numeric_limits<int>::max() << "2147483647"
                             << "x";
    QTest::newRow("lowest") << std::numeric_limits<int>::min() << "-2147483648"
                            << "x";
}

void ScannerSignalTest::tellsErrors()
{
    QFETCH(int, code);
    QFETCH(QString, codeText);
    QFETCH(QString, errorText);
    create(plugin());
    Q_EMIT scanner().signalError(code, errorText);
    QCOMPARE(published(), errorMessage(codeText, errorText));
}

void ScannerSignalTest::tellsStates_data()
{
    QTest::addColumn<int>("state");
    for (const int state :
         {0, 1, 2, 3, 4, 99, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        QTest::newRow(QByteArray::number(state).constData()) << state;
}

void ScannerSignalTest::tellsStates()
{
    QFETCH(int, state);
    create(plugin());
    for (int time = 0; time < 2; ++time) { // nothing is remembered
        Q_EMIT scanner().signalState(static_cast<ScannerState>(state));
        QCOMPARE(published(), stateMessage(state));
    }
}

void ScannerSignalTest::tellsWhatWasRead_data()
{
    QTest::addColumn<Fields>("fields");
    QTest::addColumn<QVariantMap>("data");
    QTest::newRow("nothing") << Fields{} << QVariantMap{};
    const QString name = QStringLiteral("name");
    const QString number = QStringLiteral("doc.number");
    QTest::newRow("fields") << Fields{{number, QStringLiteral("0042")},
                                      {name, QStringLiteral("Зоя")},
                                      {QString(), QStringLiteral("no key")}}
                            << QVariantMap{{number, QStringLiteral("0042")},
                                           {name, QStringLiteral("Зоя")},
                                           {QString(), QStringLiteral("no key")}};
    QTest::newRow("empty text") << Fields{{name, QString()}} << QVariantMap{{name, QString()}};
}

void ScannerSignalTest::tellsWhatWasRead()
{
    QFETCH(Fields, fields);
    QFETCH(QVariantMap, data);
    create(plugin());
    Q_EMIT scanner().signalFinish(fields);
    QCOMPARE(replies().count(), 1);
    QCOMPARE(published(), finishMessage(data));
}

void ScannerSignalTest::tellsSignalsInTheirOrder()
{
    create(plugin());
    Q_EMIT scanner().signalFinish({});
    Q_EMIT scanner().signalState(ScannerStateScanning);
    Q_EMIT scanner().signalError(1, QStringLiteral("text"));
    Q_EMIT scanner().signalFinish({});
    QCOMPARE(published(),
             finishMessage({}) + stateMessage(2)
                 + errorMessage(QStringLiteral("1"), QStringLiteral("text")) + finishMessage({}));
}

void ScannerSignalTest::tellsSignalsInsideARequest()
{
    create(plugin());
    scanner().duringCall = [this] { Q_EMIT scanner().signalState(ScannerStateScanning); };
    send(R"({"ignore_not_connected": true})");
    QCOMPARE(heard(), stateMessage(2) + response(true));
    QCOMPARE(done(), QStringList{m_scan});
}

void ScannerSignalTest::tellsSignalsOfAnotherThread()
{
    create(plugin());
    const QString name = QStringLiteral("name");
    inAnotherThread([this, name] {
        Q_EMIT scanner().signalError(1, QStringLiteral("text"));
        Q_EMIT scanner().signalState(ScannerStateWaiting);
        Q_EMIT scanner().signalFinish({{name, QStringLiteral("Ann")}});
    });
    QCOMPARE(published(), QStringList()); // not before the event loop turns
    turnEventLoop();
    QCOMPARE(published(),
             errorMessage(QStringLiteral("1"), QStringLiteral("text")) + stateMessage(1)
                 + finishMessage({{name, QStringLiteral("Ann")}}));
}

void ScannerSignalTest::registersTheState()
{
    create(plugin());
    QVERIFY(QMetaType::type("ScannerState") != QMetaType::UnknownType);
}

void ScannerSignalTest::toldByEachHandler()
{
    create(plugin());
    installHandler(plugin());
    Q_EMIT scanner().signalState(ScannerStateIdle);
    QCOMPARE(published(), stateMessage(0) + stateMessage(0));
}

void ScannerSignalTest::survivesClearingInASignal_data()
{
    QTest::addColumn<QString>("signal");
    for (const char *signal : {"error", "state", "finish"})
        QTest::newRow(signal) << QString::fromLatin1(signal);
}

void ScannerSignalTest::survivesClearingInASignal()
{
    QFETCH(QString, signal);
    create(plugin());
    const auto emitSignal = [this, signal] {
        if (signal == QStringLiteral("error"))
            Q_EMIT scanner().signalError(1, QStringLiteral("text"));
        else if (signal == QStringLiteral("state"))
            Q_EMIT scanner().signalState(ScannerStateIdle);
        else
            Q_EMIT scanner().signalFinish({});
    };
    during(topic(qPrintable(signal)), [this, emitSignal] {
        renew();
        emitSignal();
    });
    emitSignal();
    QCOMPARE(heard().size(), 2); // the first, and the second told once
    emitSignal();
    QCOMPARE(heard().size(), 1);
    during(topic(qPrintable(signal)), [this] { brocker()->clear(); });
    emitSignal();
    emitSignal();
    QCOMPARE(heard().size(), 1);
}

void ScannerSignalTest::staysSilentOnceCleared()
{
    create(plugin());
    const QString host = QStringLiteral("cookie.set");
    during(host, [this] {
        renew();
        Q_EMIT scanner().signalError(1, QStringLiteral("text"));
        Q_EMIT scanner().signalState(ScannerStateIdle);
        Q_EMIT scanner().signalFinish({});
    });
    brocker()->publish(panorel::Message(host));
    QCOMPARE(heard(),
             errorMessage(QStringLiteral("1"), QStringLiteral("text")) + stateMessage(0)
                 + finishMessage({}));
}

void ScannerSignalTest::hearsNothingOnceDeleted()
{
    create(plugin());
    inAnotherThread([this] { Q_EMIT scanner().signalState(ScannerStateIdle); }); // on its way
    brocker()->clear();
    watch(topic("state"));
    log().take();
    Q_EMIT scanner().signalError(1, QStringLiteral("text"));
    Q_EMIT scanner().signalState(ScannerStateIdle);
    Q_EMIT scanner().signalProgress(1);
    Q_EMIT scanner().signalFinish({});
    turnEventLoop();
    QCOMPARE(published(), QStringList());
}

void ScannerSignalTest::survivesAScannerThatPartsWithSignals()
{
    class PartingScanner : public TestScanner
    {
    public:
        using TestScanner::TestScanner;
        ~PartingScanner() override
        {
            Q_EMIT signalError(-1, QStringLiteral("switched off"));
            Q_EMIT signalState(ScannerStateDisconnected);
            Q_EMIT signalProgress(0);
            Q_EMIT signalFinish({});
        }
    };

    own() = QSharedPointer<PartingScanner>::create(&plugin()->calls);
    create(plugin());
    own().reset();
    brocker()->clear(); // the handler was the last to hold it
    QCOMPARE(heard(), QStringList());
}
