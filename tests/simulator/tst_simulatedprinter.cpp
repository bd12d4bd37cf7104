#include "simulator/core/SimulatedPrinter.h"

#include "tests/support/TestCase.h"

#include <QFile>
#include <QTemporaryDir>

using simulator::Pace;
using simulator::SimulatedPrinter;

class SimulatedPrinterTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void printsAPicture();
    void printsWaitingPicturesInOrder();
    void refusesWhatItCannotPrint_data();
    void refusesWhatItCannotPrint();
    void refusesWhenUnplugged();
    void reportsNoPaper();
    void reportsLowPaper();
    void newPaperEndsTheError();
    void reportsAnInjectedError();
    void anErrorLasts();
    void lowPaperAsAnErrorKeepsNothingFromBeingPrinted();
    void anErrorOutlastsThePlug();
    void clearingAnErrorBringsNoPaper();
    void mayRefuseEverything();
    void reportsItsPaper();
    void judgesThePaperByANewThreshold();
    void countsItsPrints();

protected:
    void setUp() override
    {
        m_printer.reset(new SimulatedPrinter(Pace()));
        m_printer->setPrintTime(5);
        m_states.clear();
        m_errors.clear();
        connect(m_printer.data(), &IPrinter::signalState, this,
                [this](PrinterState state) { m_states.append(static_cast<int>(state)); });
        connect(m_printer.data(), &IPrinter::signalError, this,
                [this](int code) { m_errors.append(code); });
        m_folder.reset(new QTemporaryDir);
    }
    void tearDown() override
    {
        m_printer.reset();
        m_folder.reset();
    }

private:
    QString write(const QByteArray &bytes)
    {
        QString path = m_folder->filePath(QStringLiteral("picture.png"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }

    const QByteArray m_png = "\x89PNG\r\n\x1a\nand the rest";
    QScopedPointer<SimulatedPrinter> m_printer;
    QScopedPointer<QTemporaryDir> m_folder;
    QList<int> m_states;
    QList<int> m_errors;
};

void SimulatedPrinterTest::printsAPicture()
{
    const int paper = m_printer->paper();
    QVERIFY(m_printer->print(write(m_png)));
    QCOMPARE(m_printer->state(), PrinterState::InProcess);
    QTRY_COMPARE(m_printer->state(), PrinterState::Idle);
    QCOMPARE(m_printer->prints(), QList<QByteArray>{m_png});
    QCOMPARE(m_printer->paper(), paper - 1);
    QVERIFY(m_errors.isEmpty());
}

void SimulatedPrinterTest::printsWaitingPicturesInOrder()
{
    QVERIFY(m_printer->print(write(m_png + "1")));
    QVERIFY(m_printer->print(write(m_png + "2")));
    const QList<QByteArray> expected{m_png + "1", m_png + "2"};
    QTRY_COMPARE(m_printer->prints(), expected);
}

void SimulatedPrinterTest::refusesWhatItCannotPrint_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("no picture") << QByteArray("hello");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no file") << QByteArray("-");
}

void SimulatedPrinterTest::refusesWhatItCannotPrint()
{
    QFETCH(QByteArray, bytes);
    const QString file = write(bytes);
    if (bytes == "-")
        QVERIFY(QFile::remove(file));
    QVERIFY(!m_printer->print(file));
    QVERIFY(m_states.isEmpty());
}

void SimulatedPrinterTest::refusesWhenUnplugged()
{
    m_printer->setConnected(false);
    QVERIFY(!m_printer->isConnected());
    QVERIFY(!m_printer->print(write(m_png)));
    m_printer->setConnected(true);
    QCOMPARE(m_states,
             (QList<int>{static_cast<int>(PrinterState::NotConnected),
                         static_cast<int>(PrinterState::Idle)}));
}

void SimulatedPrinterTest::reportsNoPaper()
{
    m_printer->setPaper(0);
    m_errors.clear();
    QVERIFY(!m_printer->print(write(m_png)));
    QCOMPARE(m_errors, QList<int>{1});
    QCOMPARE(m_printer->state(), PrinterState::Error);
}

void SimulatedPrinterTest::reportsLowPaper()
{
    m_printer->setPaper(6);
    QVERIFY(m_printer->print(write(m_png)));
    QTRY_COMPARE(m_errors, QList<int>{2});
    QCOMPARE(m_printer->state(), PrinterState::Error);
    QVERIFY(m_printer->print(write(m_png))); // low paper keeps nothing from being printed
}

void SimulatedPrinterTest::newPaperEndsTheError()
{
    m_printer->setPaper(0);
    m_printer->setPaper(20);
    QCOMPARE(m_printer->state(), PrinterState::Idle);
    QVERIFY(m_printer->print(write(m_png)));
}

void SimulatedPrinterTest::reportsAnInjectedError()
{
    QSignalSpy errors(m_printer.data(), &IPrinter::signalError);
    m_printer->injectError(7, QStringLiteral("cover open"));
    QCOMPARE(errors.count(), 1);
    QCOMPARE(errors.at(0).at(1).toString(), QStringLiteral("cover open"));
    QCOMPARE(m_printer->state(), PrinterState::Error);
    m_printer->clearError();
    QCOMPARE(m_printer->state(), PrinterState::Idle);
}

void SimulatedPrinterTest::anErrorLasts()
{
    m_printer->injectError(7, QStringLiteral("cover open"));
    QVERIFY(!m_printer->print(write(m_png)));
    m_printer->setPaper(40);
    m_printer->setLowPaper(45);
    QCOMPARE(m_printer->state(), PrinterState::Error);
    QCOMPARE(m_printer->errorCode(), 7);
    QCOMPARE(m_printer->errorText(), QStringLiteral("cover open"));
    m_printer->setLowPaper(5);
    m_printer->clearError();
    QCOMPARE(m_printer->state(), PrinterState::Idle);
    QVERIFY(m_printer->print(write(m_png)));
}

void SimulatedPrinterTest::lowPaperAsAnErrorKeepsNothingFromBeingPrinted()
{
    m_printer->injectError(2, QStringLiteral("few sheets"));
    QVERIFY(m_printer->print(write(m_png)));
    QTRY_COMPARE(m_printer->printCount(), 1);
    QCOMPARE(m_printer->state(), PrinterState::Error); // still
    QCOMPARE(m_errors, (QList<int>{2, 2}));
}

void SimulatedPrinterTest::anErrorOutlastsThePlug()
{
    m_printer->setConnected(false);
    m_printer->injectError(7, QStringLiteral("cover open"));
    QCOMPARE(m_printer->state(), PrinterState::NotConnected);
    QVERIFY(m_errors.isEmpty());
    m_printer->setConnected(true);
    QCOMPARE(m_errors, QList<int>{7});
    QCOMPARE(m_printer->state(), PrinterState::Error);
    m_printer->setConnected(false);
    m_printer->clearError();
    QCOMPARE(m_printer->state(), PrinterState::NotConnected);
    m_printer->setConnected(true);
    QCOMPARE(m_printer->state(), PrinterState::Idle);
}

void SimulatedPrinterTest::clearingAnErrorBringsNoPaper()
{
    m_printer->setPaper(0);
    m_printer->clearError(); // there is none of this kind
    QCOMPARE(m_printer->state(), PrinterState::Error);
    m_printer->injectError(7, QStringLiteral("cover open"));
    m_printer->clearError();
    QCOMPARE(m_printer->errorCode(), 1);
    QCOMPARE(m_printer->state(), PrinterState::Error);
}

void SimulatedPrinterTest::mayRefuseEverything()
{
    QSignalSpy changed(m_printer.data(), &SimulatedPrinter::refusingChanged);
    m_printer->setRefusing(true);
    m_printer->setRefusing(true);
    QCOMPARE(changed.count(), 1);
    QVERIFY(!m_printer->print(write(m_png)));
    QVERIFY(m_states.isEmpty());
    m_printer->setRefusing(false);
    QVERIFY(m_printer->print(write(m_png)));
}

void SimulatedPrinterTest::reportsItsPaper()
{
    QSignalSpy paper(m_printer.data(), &SimulatedPrinter::paperChanged);
    m_printer->setPaper(20);
    m_printer->setPaper(20);
    QVERIFY(m_printer->print(write(m_png)));
    QTRY_COMPARE(paper.count(), 2);
    QCOMPARE(paper.at(0).at(0).toInt(), 20);
    QCOMPARE(paper.at(1).at(0).toInt(), 19);
}

void SimulatedPrinterTest::judgesThePaperByANewThreshold()
{
    m_printer->setPaper(20);
    QSignalSpy changed(m_printer.data(), &SimulatedPrinter::lowPaperChanged);
    m_states.clear();
    m_printer->setLowPaper(19);
    m_printer->setLowPaper(19);
    QCOMPARE(changed.count(), 1);
    QVERIFY(m_states.isEmpty()); // not low
    m_printer->setLowPaper(20);
    QCOMPARE(m_errors, QList<int>{2});
    QCOMPARE(m_printer->state(), PrinterState::Error);
    m_printer->setLowPaper(5);
    QCOMPARE(m_printer->state(), PrinterState::Idle);
    m_printer->setConnected(false);
    m_printer->setLowPaper(30);
    QCOMPARE(m_printer->state(), PrinterState::NotConnected);
}

void SimulatedPrinterTest::countsItsPrints()
{
    m_printer->setPrintTime(0);
    m_printer->setPaper(100);
    for (int i = 0; i < 51; ++i)
        QVERIFY(m_printer->print(write(m_png + QByteArray::number(i))));
    QTRY_COMPARE(m_printer->printCount(), 51);
    QCOMPARE(m_printer->prints().size(), 50); // the first is forgotten
    QCOMPARE(m_printer->prints().constFirst(), m_png + "1");
}

QTEST_GUILESS_MAIN(SimulatedPrinterTest)

#include "tst_simulatedprinter.moc"
