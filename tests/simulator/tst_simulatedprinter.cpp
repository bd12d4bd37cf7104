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
        const QString path = m_folder->filePath(QStringLiteral("picture.png"));
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

QTEST_GUILESS_MAIN(SimulatedPrinterTest)

#include "tst_simulatedprinter.moc"
