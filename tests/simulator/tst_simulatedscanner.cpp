#include "simulator/core/SimulatedScanner.h"

#include "tests/support/Noted.h"
#include "tests/support/TestCase.h"

using simulator::Pace;
using simulator::SimulatedScanner;
using Result = QMap<QString, QString>;

class SimulatedScannerTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void readsADocument();
    void givesUpWithoutADocument();
    void scansADocumentThatIsLaidDownLater();
    void refusesASecondScan();
    void refusesWhenUnplugged();
    void unpluggingEndsTheScan();
    void errorEndsTheScan();
    void keepsItsOptions();
    void reportsWhatWasChanged();
    void tellsHowFarItIs();

protected:
    void setUp() override
    {
        m_scanner.reset(new SimulatedScanner(Pace()));
        m_scanner->setScanTime(10);
        m_scanner->setResult(m_result);
        m_finishes = 0;
        m_states.clear();
        connect(m_scanner.data(), &IScanner::signalFinish, this, [this] { ++m_finishes; });
        m_progress.clear();
        connect(m_scanner.data(), &IScanner::signalState, this,
                [this](ScannerState state) { m_states.append(state); });
        connect(m_scanner.data(), &IScanner::signalProgress, this,
                [this](double progress) { m_progress.append(progress); });
    }
    void tearDown() override { m_scanner.reset(); }

private:
    const Result m_result{{QStringLiteral("name"), QStringLiteral("ERIKA")}};
    QScopedPointer<SimulatedScanner> m_scanner;
    int m_finishes = 0;
    QList<int> m_states;
    QList<double> m_progress;
};

void SimulatedScannerTest::readsADocument()
{
    Noted<Result> read;
    connect(m_scanner.data(), &IScanner::signalFinish, &read,
            [&read](const Result &result) { read.value = result; });
    QVERIFY(m_scanner->scan(30));
    QTRY_COMPARE(m_states,
                 (QList<int>{ScannerStateWaiting, ScannerStateScanning, ScannerStateRecognizing,
                             ScannerStateIdle}));
    QCOMPARE(read.value, m_result);
    QCOMPARE(m_progress, (QList<double>{20, 40, 60, 80, 100}));
}

void SimulatedScannerTest::givesUpWithoutADocument()
{
    QSignalSpy errors(m_scanner.data(), &IScanner::signalError);
    m_scanner->setDocumentPresent(false);
    QVERIFY(m_scanner->scan(0.01));
    QTRY_COMPARE(errors.count(), 1);
    QCOMPARE(errors.at(0).at(0).toInt(), 1);
    QCOMPARE(m_states, (QList<int>{ScannerStateWaiting, ScannerStateIdle}));
    QCOMPARE(m_finishes, 0);
}

void SimulatedScannerTest::scansADocumentThatIsLaidDownLater()
{
    m_scanner->setDocumentPresent(false);
    QVERIFY(m_scanner->scan(30));
    m_scanner->setDocumentPresent(true);
    QTRY_COMPARE(m_finishes, 1);
}

void SimulatedScannerTest::refusesASecondScan()
{
    m_scanner->setDocumentPresent(false);
    QVERIFY(m_scanner->scan(30));
    QVERIFY(!m_scanner->scan(30));
    QCOMPARE(m_states, QList<int>{ScannerStateWaiting});
}

void SimulatedScannerTest::refusesWhenUnplugged()
{
    m_scanner->setConnected(false);
    QVERIFY(!m_scanner->isConnected());
    QVERIFY(!m_scanner->scan(30));
    QCOMPARE(m_states, QList<int>{ScannerStateDisconnected});
    m_scanner->setConnected(true);
    QVERIFY(m_scanner->scan(30));
}

void SimulatedScannerTest::unpluggingEndsTheScan()
{
    m_scanner->setDocumentPresent(false);
    QVERIFY(m_scanner->scan(30));
    m_scanner->setConnected(false);
    m_scanner->setConnected(true);
    QCOMPARE(m_states,
             (QList<int>{ScannerStateWaiting, ScannerStateDisconnected, ScannerStateIdle}));
    QVERIFY(m_scanner->scan(30));
}

void SimulatedScannerTest::errorEndsTheScan()
{
    QSignalSpy errors(m_scanner.data(), &IScanner::signalError);
    m_scanner->setDocumentPresent(false);
    QVERIFY(m_scanner->scan(30));
    m_scanner->injectError(5, QStringLiteral("lamp"));
    QCOMPARE(errors.count(), 1);
    QCOMPARE(errors.at(0).at(1).toString(), QStringLiteral("lamp"));
    QCOMPARE(m_scanner->state(), ScannerStateIdle);
}

void SimulatedScannerTest::keepsItsOptions()
{
    m_scanner->setMode(3);
    m_scanner->setBrightness(200);
    m_scanner->setResolution(600);
    QCOMPARE(int(m_scanner->mode()), 3);
    QCOMPARE(int(m_scanner->brightness()), 200);
    QCOMPARE(int(m_scanner->resolution()), 600);
}

void SimulatedScannerTest::reportsWhatWasChanged()
{
    QSignalSpy options(m_scanner.data(), &SimulatedScanner::optionsChanged);
    m_scanner->setMode(1);
    m_scanner->setBrightness(2);
    m_scanner->setResolution(3);
    QCOMPARE(options.count(), 3);

    QSignalSpy present(m_scanner.data(), &SimulatedScanner::documentPresentChanged);
    m_scanner->setDocumentPresent(false);
    m_scanner->setDocumentPresent(false);
    QCOMPARE(present.count(), 1);
    QVERIFY(!m_scanner->isDocumentPresent());

    QSignalSpy result(m_scanner.data(), &SimulatedScanner::resultChanged);
    m_scanner->setResult(m_result);
    QCOMPARE(result.count(), 0);
    m_scanner->setResult({});
    QCOMPARE(result.count(), 1);
    QVERIFY(m_scanner->result().isEmpty());
}

void SimulatedScannerTest::tellsHowFarItIs()
{
    Noted<QList<double>> read;
    connect(m_scanner.data(), &IScanner::signalProgress, &read,
            [&read, this] { read.value.append(m_scanner->progress()); });
    QVERIFY(m_scanner->scan(30));
    QTRY_COMPARE(m_finishes, 1);
    QCOMPARE(read.value, m_progress);
    QVERIFY(m_scanner->scan(30));
    QCOMPARE(m_scanner->progress(), 0);
}

QTEST_GUILESS_MAIN(SimulatedScannerTest)

#include "tst_simulatedscanner.moc"
