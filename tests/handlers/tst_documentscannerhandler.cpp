#include "panorel/handlers/DocumentScannerHandler.h"

#include "tests/handlers/ScannerSignalTest.h"

using panorel::DocumentScannerHandler;

class DocumentScannerHandlerTest : public ScannerSignalTest
{
    Q_OBJECT

public:
    DocumentScannerHandlerTest()
        : ScannerSignalTest(QStringLiteral("document"), QStringLiteral("DocumentScannerHandler"))
    { }

private:
    void installHandler(PluginInterface *host) override
    {
        install(new DocumentScannerHandler(host, brocker()),
                QStringLiteral("scanner.document.request"), className());
    }
    Scanner &own() override { return plugin()->documentScanner; }
    Scanner &other() override { return plugin()->passportScanner; }

    static QString called(const char *name, int value)
    {
        return QStringLiteral("scanner.%1(%2)").arg(QString::fromLatin1(name)).arg(value);
    }

private Q_SLOTS:
    void setsWhatIsPresent_data();
    void setsWhatIsPresent();
    void setsAScannerThatIsNotConnected();
    void narrowsSettings_data();
    void narrowsSettings();
    void survivesNumbersOutOfRange_data();
    void survivesNumbersOutOfRange();
    void tellsProgress_data();
    void tellsProgress();
    void tellsProgressOfAnotherThread();
    void survivesClearingInProgress();
};

void DocumentScannerHandlerTest::setsWhatIsPresent_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QStringList>("settings");
    const QString mode = called("setMode", 1);
    const QString brightness = called("setBrightness", 2);
    const QString resolution = called("setResolution", 3);
    const auto row = [](const char *json, const QStringList &settings) {
        QTest::newRow(json) << QByteArray(json) << settings;
    };
    row(R"({"mode": 1})", {mode});
    row(R"({"brightness": 2})", {brightness});
    row(R"({"resolution": 3})", {resolution});
    row(R"({"resolution": 3, "mode": 1})", {mode, resolution});
    row(R"({"resolution": 3, "brightness": 2, "mode": 1})", {mode, brightness, resolution});
    row(R"({"Mode": 1, "contrast": 2})", {});
}

void DocumentScannerHandlerTest::setsWhatIsPresent()
{
    QFETCH(QByteArray, json);
    QFETCH(QStringList, settings);
    makesUpAttributes({"Mode", "contrast"});
    create(plugin());
    QCOMPARE(ask(json), response(true));
    QCOMPARE(done(), settings + QStringList({m_isConnected, m_scan}));
}

void DocumentScannerHandlerTest::setsAScannerThatIsNotConnected()
{
    create(plugin());
    scanner().connected = false;
    QCOMPARE(ask(R"({"mode": 1, "brightness": 2, "resolution": 3})"), response(false));
    QCOMPARE(done(),
             QStringList({called("setMode", 1), called("setBrightness", 2),
                          called("setResolution", 3), m_isConnected}));
}

void DocumentScannerHandlerTest::narrowsSettings_data() { addIntegers(); }

void DocumentScannerHandlerTest::narrowsSettings()
{
    QFETCH(QByteArray, value);
    QFETCH(int, lower16);
    QFETCH(int, lower8);
    create(plugin());
    QCOMPARE(ask("{\"mode\": " + value + ", \"brightness\": " + value + ", \"resolution\": " + value
                 + '}'),
             response(true));
    QCOMPARE(done(),
             QStringList({called("setMode", lower8), called("setBrightness", lower8),
                          called("setResolution", lower16), m_isConnected, m_scan}));
}

void DocumentScannerHandlerTest::survivesNumbersOutOfRange_data() { addNumbersOutOfRange(); }

void DocumentScannerHandlerTest::survivesNumbersOutOfRange()
{
    QFETCH(QByteArray, value);
    create(plugin());
    QCOMPARE(ask("{\"mode\": " + value + ", \"resolution\": " + value + '}'), response(true));
    QCOMPARE(done().size(), 4);
}

void DocumentScannerHandlerTest::tellsProgress_data()
{
    QTest::addColumn<double>("progress");
    QTest::addColumn<QString>("progressText");
    const auto row = [](double progress, const char *progressText) {
        QTest::newRow(progressText) << progress << QString::fromLatin1(progressText);
    };
    row(0, "0");
    row(0.5, "0.5");
    row(100, "100");
    row(0.333333333, "0.333333");
    row(66.6666666, "66.6667");
    row(-1, "-1");
    row(999999, "999999");
    row(1234567, "1.23457e+06");
    row(0.0001, "0.0001");
    row(0.00001, "1e-05");
}

void DocumentScannerHandlerTest::tellsProgress()
{
    QFETCH(double, progress);
    QFETCH(QString, progressText);
    create(plugin());
    Q_EMIT scanner().signalProgress(progress);
    QCOMPARE(published(), progressMessage(progressText));
}

void DocumentScannerHandlerTest::tellsProgressOfAnotherThread()
{
    create(plugin());
    inAnotherThread([this] { Q_EMIT scanner().signalProgress(0.5); });
    QCOMPARE(published(), QStringList()); // not before the event loop turns
    turnEventLoop();
    QCOMPARE(published(), progressMessage(QStringLiteral("0.5")));
}

void DocumentScannerHandlerTest::survivesClearingInProgress()
{
    create(plugin());
    during(topic("progress"), [this] {
        renew();
        Q_EMIT scanner().signalProgress(2);
    });
    Q_EMIT scanner().signalProgress(1);
    // The second is told once, by the successor.
    QCOMPARE(heard(), progressMessage(QStringLiteral("1")) + progressMessage(QStringLiteral("2")));
}

QTEST_GUILESS_MAIN(DocumentScannerHandlerTest)
#include "tst_documentscannerhandler.moc"
