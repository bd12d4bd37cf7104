#include "simulator/app/PrinterPanel.h"

#include "simulator/core/SimulatedPrinter.h"
#include "tests/simulator/PanelControls.h"
#include "tests/support/TestCase.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <functional>
#include <memory>

using namespace simulator;

class PrinterPanelTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheState_data();
    void showsTheState();
    void plugsInAndOut();
    void laysPaper();
    void takesANumberOnlyWhenItIsComplete();
    void setsWhenPaperIsLow();
    void reportsAndClearsAnError();
    void refusesPictures();
    void showsThePaperThatIsLeft();
    void showsWhatWasPrintedLast();
    void showsThatAPictureIsNone();
    void showsADeviceAsItFindsIt();

protected:
    void setUp() override
    {
        m_printer = std::make_unique<SimulatedPrinter>(Pace());
        m_printer->setPrintTime(1);
        m_panel = std::make_unique<PrinterPanel>(m_printer.get());
        m_panel->resize(330, 160);
        m_folder.reset(new QTemporaryDir);
    }
    void tearDown() override
    {
        m_panel.reset();
        m_printer.reset();
        m_folder.reset();
    }

private:
    QString picture(const QColor &color)
    {
        QImage image(200, 100, QImage::Format_RGB32);
        image.fill(color);
        QString file = m_folder->filePath(QStringLiteral("picture.png"));
        if (!image.save(file))
            qFatal("cannot write %s", qPrintable(file));
        return file;
    }

    std::unique_ptr<SimulatedPrinter> m_printer;
    std::unique_ptr<PrinterPanel> m_panel;
    QScopedPointer<QTemporaryDir> m_folder;
};

using Change = std::function<void(SimulatedPrinter *)>;
Q_DECLARE_METATYPE(Change)

void PrinterPanelTest::showsTheState_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *text, const Change &change) {
        QTest::newRow(text) << change << QString::fromUtf8(text);
    };
    row("idle", [](SimulatedPrinter *) {});
    row("not connected", [](SimulatedPrinter *printer) { printer->setConnected(false); });
    row("error 1: The printer has no paper",
        [](SimulatedPrinter *printer) { printer->setPaper(0); });
    row("error 2: The printer is low on paper",
        [](SimulatedPrinter *printer) { printer->setPaper(2); });
    row("error 0: odd",
        [](SimulatedPrinter *printer) { printer->injectError(0, QStringLiteral("odd")); });
}

void PrinterPanelTest::showsTheState()
{
    QFETCH(Change, change);
    change(m_printer.get());
    m_panel->resize(900, 160);
    m_panel->grab(); // lays it out
    QTEST(controls::text(m_panel.get(), "state"), "text");
    QCOMPARE(controls::find<QCheckBox>(m_panel.get(), "Plugged in")->isChecked(),
             m_printer->isConnected());
}

void PrinterPanelTest::plugsInAndOut()
{
    controls::check(m_panel.get(), "Plugged in");
    QVERIFY(!m_printer->isConnected());
    controls::check(m_panel.get(), "Plugged in");
    QVERIFY(m_printer->isConnected());
}

void PrinterPanelTest::laysPaper()
{
    controls::enter(m_panel.get(), "paper", 0);
    QCOMPARE(m_printer->paper(), 0);
    QCOMPARE(m_printer->errorCode(), 1);
    controls::enter(m_panel.get(), "paper", 30);
    QCOMPARE(m_printer->paper(), 30);
    QCOMPARE(m_printer->state(), PrinterState::Idle);
}

void PrinterPanelTest::takesANumberOnlyWhenItIsComplete()
{
    QSignalSpy errors(m_printer.get(), &IPrinter::signalError);
    controls::enter(m_panel.get(), "paper", 12); // not 1 on the way
    QCOMPARE(m_printer->paper(), 12);
    QCOMPARE(errors.count(), 0);
}

void PrinterPanelTest::setsWhenPaperIsLow()
{
    controls::enter(m_panel.get(), "lowPaper", 50);
    QCOMPARE(m_printer->lowPaper(), 50);
    QCOMPARE(m_printer->errorCode(), 2);
    m_printer->setLowPaper(3);
    QCOMPARE(controls::find<QSpinBox>(m_panel.get(), "lowPaper")->value(), 3);
}

void PrinterPanelTest::reportsAndClearsAnError()
{
    QSignalSpy errors(m_printer.get(), &IPrinter::signalError);
    controls::enter(m_panel.get(), "code", 42);
    controls::type(m_panel.get(), "text", QStringLiteral("It is hot"));
    controls::click(m_panel.get(), "Report");
    QCOMPARE(errors.count(), 1);
    QCOMPARE(errors.at(0), (QVariantList{42, QStringLiteral("It is hot")}));
    QCOMPARE(m_printer->state(), PrinterState::Error);
    controls::click(m_panel.get(), "Clear");
    QCOMPARE(m_printer->state(), PrinterState::Idle);
}

void PrinterPanelTest::refusesPictures()
{
    controls::check(m_panel.get(), "Refuses all");
    QVERIFY(!m_printer->print(picture(Qt::red)));
    m_printer->setRefusing(false);
    QVERIFY(!controls::find<QCheckBox>(m_panel.get(), "Refuses all")->isChecked());
}

void PrinterPanelTest::showsThePaperThatIsLeft()
{
    const auto *paper = controls::find<QSpinBox>(m_panel.get(), "paper");
    QCOMPARE(paper->value(), 50);
    QVERIFY(m_printer->print(picture(Qt::red)));
    QTRY_COMPARE(paper->value(), 49);
    QCOMPARE(m_printer->paper(), 49);
}

void PrinterPanelTest::showsWhatWasPrintedLast()
{
    auto *shown = controls::find<QLabel>(m_panel.get(), "picture");
    QCOMPARE(shown->text(), QStringLiteral("no picture"));
    QCOMPARE(controls::text(m_panel.get(), "count"), QStringLiteral("0"));
    for (const QColor &color : {QColor(Qt::red), QColor(Qt::blue)}) {
        QVERIFY(m_printer->print(picture(color)));
        QTRY_COMPARE(m_printer->state(), PrinterState::Idle);
        const QImage image = shown->grab().toImage();
        QCOMPARE(image.pixelColor(image.rect().center()), color);
    }
    QCOMPARE(controls::text(m_panel.get(), "count"), QStringLiteral("2"));
}

void PrinterPanelTest::showsThatAPictureIsNone()
{
    QFile file(m_folder->filePath(QStringLiteral("broken.png")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("\x89PNG\r\n\x1a\nand the rest");
    file.close();
    QVERIFY(m_printer->print(file.fileName()));
    QTRY_COMPARE(controls::text(m_panel.get(), "count"), QStringLiteral("1"));
    QCOMPARE(controls::text(m_panel.get(), "picture"), QStringLiteral("unreadable"));
}

void PrinterPanelTest::showsADeviceAsItFindsIt()
{
    m_printer->setPaper(7);
    m_printer->setRefusing(true);
    m_printer->setConnected(false);
    QSignalSpy states(m_printer.get(), &IPrinter::signalState);
    const PrinterPanel panel(m_printer.get());
    QCOMPARE(controls::find<QSpinBox>(&panel, "paper")->value(), 7);
    QVERIFY(controls::find<QCheckBox>(&panel, "Refuses all")->isChecked());
    QVERIFY(!controls::find<QCheckBox>(&panel, "Plugged in")->isChecked());
    QCOMPARE(states.count(), 0); // looking changes nothing
    QVERIFY(!m_printer->isConnected());
}

QTEST_MAIN(PrinterPanelTest)

#include "tst_printerpanel.moc"
