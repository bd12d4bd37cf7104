#include "panorel/handlers/PassportScannerHandler.h"

#include "tests/handlers/ScannerSignalTest.h"

using panorel::PassportScannerHandler;

class PassportScannerHandlerTest : public ScannerSignalTest
{
    Q_OBJECT

public:
    PassportScannerHandlerTest()
        : ScannerSignalTest(QStringLiteral("passport"), QStringLiteral("PassportScannerHandler"))
    { }

private:
    void installHandler(PluginInterface *host) override
    {
        install(new PassportScannerHandler(host, brocker()),
                QStringLiteral("scanner.passport.request"), className());
    }
    Scanner &own() override { return plugin()->passportScanner; }
    Scanner &other() override { return plugin()->documentScanner; }

    void setUp() override
    {
        ScannerSignalTest::setUp();
        makesUpAttributes({"brightness", "mode", "resolution"}); // the other scanner's
    }

private Q_SLOTS:
    void ignoresSettings();
    void tellsNoProgress();
};

void PassportScannerHandlerTest::ignoresSettings()
{
    create(plugin());
    QCOMPARE(ask(R"({"mode": 1, "brightness": 2, "resolution": 3, "timeout": 4})"), response(true));
    QCOMPARE(done(), QStringList({m_isConnected, QStringLiteral("scanner.scan(4)")}));
}

void PassportScannerHandlerTest::tellsNoProgress()
{
    create(plugin());
    Q_EMIT scanner().signalProgress(0.5);
    QCOMPARE(published(), QStringList());
}

QTEST_GUILESS_MAIN(PassportScannerHandlerTest)
#include "tst_passportscannerhandler.moc"
