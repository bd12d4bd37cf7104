#include "tests/handlers/ScannerHandlerTest.h"

ScannerHandlerTest::ScannerHandlerTest(const QString &kind, const QString &className)
    : m_kind(kind)
    , m_className(className)
{ }

void ScannerHandlerTest::setUp()
{
    DeviceTestCase::setUp();
    own() = newScanner();
}

void ScannerHandlerTest::create(PluginInterface *host)
{
    for (const char *what : {"response", "error", "state", "progress", "finish"})
        watch(topic(what));
    installHandler(host);
}

void ScannerHandlerTest::renew()
{
    brocker()->clear();
    create(plugin());
}

ScannerHandlerTest::Scanner ScannerHandlerTest::newScanner()
{
    return Scanner::create(&plugin()->calls);
}

QString ScannerHandlerTest::topic(const char *what) const
{
    return QStringLiteral("scanner.%1.%2").arg(m_kind, QString::fromLatin1(what));
}

QStringList ScannerHandlerTest::response(bool success) const
{
    return {text(topic("response"), {{QStringLiteral("success"), success}})};
}

QStringList ScannerHandlerTest::errorMessage(const QString &code, const QString &errorText) const
{
    return {text(topic("error"),
                 {{QStringLiteral("code"), code}, {QStringLiteral("text"), errorText}})};
}

QStringList ScannerHandlerTest::stateMessage(int state) const
{
    return {text(topic("state"), {{QStringLiteral("state"), state}})};
}

QStringList ScannerHandlerTest::progressMessage(const QString &progress) const
{
    return {text(topic("progress"), {{QStringLiteral("progress"), progress}})};
}

QStringList ScannerHandlerTest::finishMessage(const QVariantMap &data) const
{
    return {text(topic("finish"), {{QStringLiteral("data"), data}})};
}

void ScannerHandlerTest::scans_data()
{
    QTest::addColumn<bool>("connected");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<bool>("success");
    QTest::addColumn<QStringList>("calls");
    const QByteArray ignoring = R"({"ignore_not_connected": true})";
    const QStringList both{m_isConnected, m_scan};
    QTest::newRow("started") << true << true << QByteArray("{}") << true << both;
    QTest::newRow("refused") << true << false << QByteArray("{}") << false << both;
    QTest::newRow("not connected")
        << false << true << QByteArray("{}") << false << QStringList{m_isConnected};
    QTest::newRow("ignored") << false << true << ignoring << true << QStringList{m_scan};
    QTest::newRow("ignored, refused") << false << false << ignoring << false << QStringList{m_scan};
    QTest::newRow("connected, ignored") << true << true << ignoring << true << QStringList{m_scan};
    QTest::newRow("unknown key") << true << true << QByteArray(R"({"Timeout": 5, "device": 256})")
                                 << true << both;
}

void ScannerHandlerTest::scans()
{
    QFETCH(bool, connected);
    QFETCH(bool, result);
    QFETCH(QByteArray, json);
    QFETCH(bool, success);
    QFETCH(QStringList, calls);
    makesUpAttributes({"Timeout", "device"});
    create(plugin());
    scanner().connected = connected;
    scanner().result = result;
    QCOMPARE(ask(json), response(success));
    QCOMPARE(done(), calls);
}

void ScannerHandlerTest::readsIgnoreNotConnected_data() { addTruthValues(); }

void ScannerHandlerTest::readsIgnoreNotConnected()
{
    QFETCH(QByteArray, value);
    QFETCH(bool, truth);
    create(plugin());
    scanner().connected = false;
    QCOMPARE(ask("{\"ignore_not_connected\": " + value + '}'), response(truth));
    QCOMPARE(done(), QStringList{truth ? m_scan : m_isConnected});
}

void ScannerHandlerTest::readsTheTimeout_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("seconds");
    const auto row = [](const char *value, const char *seconds) {
        QTest::newRow(value) << QByteArray(value) << QString::fromLatin1(seconds);
    };
    row("12", "12");
    row("12.75", "12.75");
    row("0", "0");
    row("-1", "-1");
    row("2147483648", "2147483648");
    row("1e300", "1e+300");
    row("\"12\"", "12");
    row("\"12.5\"", "12.5");
    row("\"1e3\"", "1000");
    row("\"soon\"", "0");
    row("\"\"", "0");
    row("true", "1");
    row("false", "0");
    row("null", "0"); // present
    row("[12]", "0");
    row("{\"a\": 12}", "0");
}

void ScannerHandlerTest::readsTheTimeout()
{
    QFETCH(QByteArray, value);
    QFETCH(QString, seconds);
    create(plugin());
    QCOMPARE(ask("{\"timeout\": " + value + '}'), response(true));
    QCOMPARE(done(), QStringList({m_isConnected, QStringLiteral("scanner.scan(%1)").arg(seconds)}));
}

void ScannerHandlerTest::answersWithoutAScanner_data()
{
    QTest::addColumn<bool>("host");
    QTest::addColumn<QByteArray>("json");
    const QByteArray settings = R"({"ignore_not_connected": true, "mode": 1, "brightness": 2,
        "resolution": 3, "timeout": 4})";
    QTest::newRow("no scanner") << true << QByteArray("{}");
    QTest::newRow("no scanner, settings") << true << settings;
    QTest::newRow("no host") << false << QByteArray("{}");
    QTest::newRow("no host, settings") << false << settings;
}

void ScannerHandlerTest::answersWithoutAScanner()
{
    QFETCH(bool, host);
    QFETCH(QByteArray, json);
    own().reset();
    create(host ? plugin() : nullptr);
    QCOMPARE(ask(json), response(false));
    own() = newScanner(); // too late
    QCOMPARE(ask(json), response(false));
    Q_EMIT scanner().signalState(ScannerStateIdle);
    QCOMPARE(published(), QStringList());
}

void ScannerHandlerTest::drivesItsOwnScanner()
{
    other() = newScanner();
    other()->connected = false;
    create(plugin());
    QCOMPARE(ask(), response(true));
    Q_EMIT other()->signalError(1, QStringLiteral("text"));
    Q_EMIT other()->signalState(ScannerStateScanning);
    Q_EMIT other()->signalProgress(0.5);
    Q_EMIT other()->signalFinish({});
    QCOMPARE(published(), QStringList());
    own().reset();
    renew();
    QCOMPARE(ask(), response(false));
    done();
}

void ScannerHandlerTest::keepsToItsScanner()
{
    create(plugin());
    const QWeakPointer<TestScanner> first = own();
    own() = newScanner();
    own()->connected = false;
    QCOMPARE(ask(), response(true));
    QCOMPARE(done(), QStringList({m_isConnected, m_scan}));
    Q_EMIT scanner().signalState(ScannerStateIdle);
    QCOMPARE(published(), QStringList());
    own().reset();
    QVERIFY(first);
    Q_EMIT first.toStrongRef()->signalState(ScannerStateWaiting);
    QCOMPARE(published(), stateMessage(1));
    brocker()->clear();
    QVERIFY(!first);
}

void ScannerHandlerTest::survivesClearingInAReply()
{
    create(plugin());
    during(topic("response"), [this] {
        renew();
        Q_EMIT scanner().signalState(ScannerStateScanning);
    });
    send();
    QCOMPARE(heard(), response(true) + stateMessage(2)); // told once, by the successor
    QCOMPARE(done(), QStringList({m_isConnected, m_scan}));
}

void ScannerHandlerTest::survivesClearingInACall_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("in the query") << QByteArray("{}");
    QTest::newRow("when scanning") << QByteArray(R"({"ignore_not_connected": true})");
    QTest::newRow("when setting") << QByteArray(R"({"mode": 1, "brightness": 2, "resolution": 3})");
}

void ScannerHandlerTest::survivesClearingInACall()
{
    QFETCH(QByteArray, json);
    create(plugin());
    scanner().duringCall = once([this] {
        renew();
        Q_EMIT scanner().signalState(ScannerStateScanning);
    });
    send(json);
    QCOMPARE(heard(), stateMessage(2) + response(true));
    QCOMPARE(done().constLast(), m_scan);

    scanner().duringCall = once([this] { brocker()->clear(); });
    send(json);
    QCOMPARE(heard(), QStringList()); // nobody is left
    QCOMPARE(done().constLast(), m_scan);
}
