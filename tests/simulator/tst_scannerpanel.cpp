#include "simulator/app/ScannerPanel.h"

#include "simulator/app/ScanFields.h"
#include "simulator/core/SimulatedScanner.h"
#include "tests/simulator/PanelControls.h"
#include "tests/support/Noted.h"
#include "tests/support/TestCase.h"

#include <QPlainTextEdit>

#include <memory>

using namespace simulator;
using Result = QMap<QString, QString>;

class ScannerPanelTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void showsStateAndProgress();
    void plugsInAndOut();
    void laysADocumentDownAndTakesItAway();
    void choosesAResult_data();
    void choosesAResult();
    void takesOwnFields();
    void showsAResultThatIsNoneOfTheReadyMade();
    void reportsAnError();
    void showsTheOptionsOfADocumentScanner();
    void looksWithoutChangingAnything();
    void fieldsSurviveTheText_data();
    void fieldsSurviveTheText();
    void readsWhatPeopleType();

protected:
    void setUp() override
    {
        m_scanner = std::make_unique<SimulatedScanner>(Pace());
        m_scanner->setScanTime(5);
        m_scanner->setResult(ScanSample::passports().constFirst().fields);
        m_panel = std::make_unique<ScannerPanel>(m_scanner.get(), ScanSample::passports());
        m_panel->resize(600, 160);
        m_panel->grab(); // lays it out
    }
    void tearDown() override
    {
        m_panel.reset();
        m_scanner.reset();
    }

private:
    QPlainTextEdit *fields() const
    {
        return controls::find<QPlainTextEdit>(m_panel.get(), "fields");
    }
    void typeFields(const QString &text) const
    {
        fields()->selectAll();
        QTest::keyClick(fields(), Qt::Key_Delete);
        const QStringList lines = text.split(QLatin1Char('\n'));
        for (int i = 0; i < lines.size(); ++i) {
            if (i > 0)
                QTest::keyClick(fields(), Qt::Key_Return);
            QTest::keyClicks(fields(), lines.at(i));
        }
    }

    std::unique_ptr<SimulatedScanner> m_scanner;
    std::unique_ptr<ScannerPanel> m_panel;
};

void ScannerPanelTest::showsStateAndProgress()
{
    QStringList shown;
    const auto note = [&shown, this] { shown.append(controls::text(m_panel.get(), "state")); };
    note();
    connect(m_scanner.get(), &IScanner::signalState, m_panel.get(), note);
    connect(m_scanner.get(), &IScanner::signalProgress, m_panel.get(), note);
    QVERIFY(m_scanner->scan(30));
    QTRY_COMPARE(m_scanner->state(), ScannerStateIdle);
    m_scanner->setConnected(false);
    const QStringList expected{QStringLiteral("idle"),
                               QStringLiteral("waits for a document"),
                               QStringLiteral("scanning, 0 %"),
                               QStringLiteral("scanning, 20 %"),
                               QStringLiteral("scanning, 40 %"),
                               QStringLiteral("scanning, 60 %"),
                               QStringLiteral("scanning, 80 %"),
                               QStringLiteral("scanning, 100 %"),
                               QStringLiteral("recognizing, 100 %"),
                               QStringLiteral("idle"),
                               QStringLiteral("not connected")};
    QCOMPARE(shown, expected);
}

void ScannerPanelTest::plugsInAndOut()
{
    controls::check(m_panel.get(), "Plugged in");
    QVERIFY(!m_scanner->isConnected());
    m_scanner->setConnected(true);
    QVERIFY(controls::find<QCheckBox>(m_panel.get(), "Plugged in")->isChecked());
}

void ScannerPanelTest::laysADocumentDownAndTakesItAway()
{
    Noted<int> finishes;
    connect(m_scanner.get(), &IScanner::signalFinish, &finishes, [&finishes] { ++finishes.value; });
    controls::check(m_panel.get(), "Document");
    QVERIFY(!m_scanner->isDocumentPresent());
    QVERIFY(m_scanner->scan(30));
    QCOMPARE(m_scanner->state(), ScannerStateWaiting);
    controls::check(m_panel.get(), "Document");
    QTRY_COMPARE(finishes.value, 1);
    m_scanner->setDocumentPresent(false);
    QVERIFY(!controls::find<QCheckBox>(m_panel.get(), "Document")->isChecked());
}

void ScannerPanelTest::choosesAResult_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("surname");
    QTest::newRow("Latin") << 0 << "MUSTERMANN";
    QTest::newRow("Chinese") << 1 << "王";
    QTest::newRow("Arabic") << 2 << "الأحمد";
    QTest::newRow("nothing") << 3 << "";
}

void ScannerPanelTest::choosesAResult()
{
    QFETCH(int, index);
    QFETCH(QString, surname);
    m_scanner->setResult({{QStringLiteral("other"), QString()}});
    Noted<Result> read;
    connect(m_scanner.get(), &IScanner::signalFinish, &read,
            [&read](const Result &result) { read.value = result; });
    controls::choose(m_panel.get(), "sample", index);
    QVERIFY(m_scanner->scan(30));
    QTRY_COMPARE(m_scanner->state(), ScannerStateIdle);
    QCOMPARE(read.value.value(QStringLiteral("surname")), surname);
    QCOMPARE(read.value.isEmpty(), surname.isEmpty());
    QCOMPARE(ScanFields::fromText(fields()->toPlainText()), read.value);
}

void ScannerPanelTest::takesOwnFields()
{
    const int own = ScanSample::passports().size();
    controls::choose(m_panel.get(), "sample", own);
    typeFields(QStringLiteral("surname: SMITH\nvisa:\nhour: 12:30\nnote"));
    const Result expected{{QStringLiteral("surname"), QStringLiteral("SMITH")},
                          {QStringLiteral("visa"), QString()},
                          {QStringLiteral("hour"), QStringLiteral("12:30")},
                          {QStringLiteral("note"), QString()}};
    QCOMPARE(m_scanner->result(), expected);
    QCOMPARE(controls::find<QComboBox>(m_panel.get(), "sample")->currentIndex(), own);
    // What is typed stays as it was typed.
    QVERIFY(fields()->toPlainText().startsWith(QStringLiteral("surname: SMITH\nvisa:\n")));
}

void ScannerPanelTest::showsAResultThatIsNoneOfTheReadyMade()
{
    m_scanner->setResult({{QStringLiteral("a"), QStringLiteral("b")}});
    QCOMPARE(fields()->toPlainText(), QStringLiteral("a: b"));
    QCOMPARE(controls::find<QComboBox>(m_panel.get(), "sample")->currentText(),
             QStringLiteral("Own fields"));
}

void ScannerPanelTest::reportsAnError()
{
    QSignalSpy errors(m_scanner.get(), &IScanner::signalError);
    controls::enter(m_panel.get(), "code", 17);
    controls::type(m_panel.get(), "text", QStringLiteral("It is dark"));
    controls::click(m_panel.get(), "Report");
    QCOMPARE(errors.count(), 1);
    QCOMPARE(errors.at(0), (QVariantList{17, QStringLiteral("It is dark")}));
}

void ScannerPanelTest::showsTheOptionsOfADocumentScanner()
{
    const auto *options = controls::find<QLabel>(m_panel.get(), "options");
    QVERIFY(!options->isVisibleTo(m_panel.get()));
    m_panel->showOptions();
    QVERIFY(options->isVisibleTo(m_panel.get()));
    QCOMPARE(options->text(), QStringLiteral("Mode 0, 300 dpi\nBrightness 128"));
    m_scanner->setMode(2);
    m_scanner->setBrightness(90);
    m_scanner->setResolution(600);
    QCOMPARE(options->text(), QStringLiteral("Mode 2, 600 dpi\nBrightness 90"));
}

void ScannerPanelTest::looksWithoutChangingAnything()
{
    const Result result{{QStringLiteral(" a:b "), QStringLiteral(" c ")}}; // no text gives this
    m_scanner->setResult(result);
    m_scanner->setDocumentPresent(false);
    m_scanner->setConnected(false);
    QSignalSpy states(m_scanner.get(), &IScanner::signalState);
    const ScannerPanel panel(m_scanner.get(), ScanSample::documents());
    QCOMPARE(m_scanner->result(), result);
    QVERIFY(!controls::find<QCheckBox>(&panel, "Document")->isChecked());
    QVERIFY(!controls::find<QCheckBox>(&panel, "Plugged in")->isChecked());
    QCOMPARE(states.count(), 0);
}

void ScannerPanelTest::fieldsSurviveTheText_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("colon") << "12:30: late";
    QTest::newRow("lines") << "one\ntwo";
    QTest::newRow("other scripts") << "再见 مرحبا";
}

void ScannerPanelTest::fieldsSurviveTheText()
{
    QFETCH(QString, text);
    const Result fields{{QStringLiteral("a"), text}, {QStringLiteral("b"), QStringLiteral("x")}};
    QCOMPARE(ScanFields::fromText(ScanFields::toText(fields)), fields);
}

void ScannerPanelTest::readsWhatPeopleType()
{
    const Result expected{{QStringLiteral("a"), QStringLiteral("1")},
                          {QStringLiteral("b"), QString()}};
    QCOMPARE(ScanFields::fromText(QStringLiteral("\n  a :1 \n\nb\n: lost\n")), expected);
    QVERIFY(ScanFields::fromText(QString()).isEmpty());
}

QTEST_MAIN(ScannerPanelTest)

#include "tst_scannerpanel.moc"
