#include "simulator/app/DispenserPanel.h"

#include "simulator/core/SimulatedDispenser.h"
#include "tests/simulator/PanelControls.h"
#include "tests/support/TestCase.h"

#include <QListWidget>
#include <QPushButton>

#include <memory>

using namespace simulator;

class DispenserPanelTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheStatusWord_data();
    void showsTheStatusWord();
    void plugsInAndOut();
    void fillsTheStack();
    void jams();
    void fillsTheBin();
    void takesTheCard();
    void reportsEachBit_data();
    void reportsEachBit();
    void reportsSeveralBits();
    void looksWithoutChangingAnything();

protected:
    void setUp() override
    {
        m_dispenser = std::make_unique<SimulatedDispenser>(Pace());
        m_dispenser->setIssueTime(1);
        m_panel = std::make_unique<DispenserPanel>(m_dispenser.get());
        m_panel->resize(900, 160);
        m_panel->grab(); // lays it out
        m_words.clear();
        connect(m_dispenser.get(), &IDispenser::statusChanged, this,
                [this](unsigned short word) { m_words.append(word); });
    }
    void tearDown() override
    {
        m_panel.reset();
        m_dispenser.reset();
    }

private:
    void checkBit(int bit)
    {
        auto *bits = controls::find<QListWidget>(m_panel.get(), "bits");
        bits->scrollToItem(bits->item(bit));
        const QRect place = bits->visualItemRect(bits->item(bit));
        QTest::mouseClick(bits->viewport(), Qt::LeftButton, Qt::NoModifier,
                          place.topLeft() + QPoint(10, place.height() / 2));
    }

    std::unique_ptr<SimulatedDispenser> m_dispenser;
    std::unique_ptr<DispenserPanel> m_panel;
    QList<int> m_words;
};

void DispenserPanelTest::showsTheStatusWord_data()
{
    QTest::addColumn<int>("word");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << 0 << "0x0000";
    QTest::newRow("lowest") << 0x0001 << "0x0001 capture sensor 1";
    QTest::newRow("two") << 0x0014 << "0x0014 card at the exit, few cards";
    QTest::newRow("no meaning") << 0x2080 << "0x2080";
    QTest::newRow("highest") << 0x8000 << "0x8000 not connected";
}

void DispenserPanelTest::showsTheStatusWord()
{
    QFETCH(int, word);
    m_dispenser->injectStatus(static_cast<unsigned short>(word));
    QTEST(controls::text(m_panel.get(), "state"), "text");
}

void DispenserPanelTest::plugsInAndOut()
{
    controls::check(m_panel.get(), "Plugged in");
    QVERIFY(!m_dispenser->isConnected());
    QCOMPARE(controls::text(m_panel.get(), "state"), QStringLiteral("0x8000 not connected"));
    m_dispenser->setConnected(true);
    QVERIFY(controls::find<QCheckBox>(m_panel.get(), "Plugged in")->isChecked());
}

void DispenserPanelTest::fillsTheStack()
{
    controls::enter(m_panel.get(), "cards", 0);
    QCOMPARE(m_dispenser->cards(), 0);
    QCOMPARE(m_words.last(), 0x0008);
    controls::enter(m_panel.get(), "cards", 12);
    m_dispenser->issueCard(4);
    QTRY_COMPARE(controls::find<QSpinBox>(m_panel.get(), "cards")->value(), 11);
    QCOMPARE(m_dispenser->cards(), 11);
}

void DispenserPanelTest::jams()
{
    controls::check(m_panel.get(), "Jam");
    m_dispenser->issueCard(4);
    QCOMPARE(m_words, QList<int>{0x0120});
    m_dispenser->setJammed(false);
    QVERIFY(!controls::find<QCheckBox>(m_panel.get(), "Jam")->isChecked());
}

void DispenserPanelTest::fillsTheBin()
{
    controls::check(m_panel.get(), "Bin full");
    QCOMPARE(m_words, QList<int>{0x1000});
    m_dispenser->setBinFull(false);
    QVERIFY(!controls::find<QCheckBox>(m_panel.get(), "Bin full")->isChecked());
}

void DispenserPanelTest::takesTheCard()
{
    const auto *take = controls::find<QPushButton>(m_panel.get(), "Take the card");
    QVERIFY(!take->isEnabled());
    m_dispenser->issueCard(4);
    QTRY_VERIFY(take->isEnabled());
    controls::click(m_panel.get(), "Take the card");
    QCOMPARE(m_words.last(), 0);
    QVERIFY(!take->isEnabled());
}

void DispenserPanelTest::reportsEachBit_data()
{
    QTest::addColumn<int>("bit");
    for (int bit = 0; bit < 16; ++bit)
        QTest::newRow(qPrintable(QString::number(bit))) << bit;
}

void DispenserPanelTest::reportsEachBit()
{
    QFETCH(int, bit);
    checkBit(bit);
    controls::click(m_panel.get(), "report");
    QCOMPARE(m_words, QList<int>{1 << bit});
}

void DispenserPanelTest::reportsSeveralBits()
{
    checkBit(0);
    checkBit(14);
    checkBit(15);
    const auto *report = controls::find<QPushButton>(m_panel.get(), "report");
    QCOMPARE(report->text(), QStringLiteral("Report 0xc001"));
    checkBit(15);
    QCOMPARE(report->text(), QStringLiteral("Report 0x4001"));
    controls::click(m_panel.get(), "report");
    QCOMPARE(m_words, QList<int>{0x4001});
}

void DispenserPanelTest::looksWithoutChangingAnything()
{
    m_dispenser->setJammed(true);
    m_dispenser->setBinFull(true);
    m_dispenser->setCards(2);
    m_dispenser->setConnected(false);
    m_words.clear();
    const DispenserPanel panel(m_dispenser.get());
    QVERIFY(m_words.isEmpty());
    QVERIFY(controls::find<QCheckBox>(&panel, "Jam")->isChecked());
    QVERIFY(controls::find<QCheckBox>(&panel, "Bin full")->isChecked());
    QVERIFY(!controls::find<QCheckBox>(&panel, "Plugged in")->isChecked());
    QCOMPARE(controls::find<QSpinBox>(&panel, "cards")->value(), 2);
}

QTEST_MAIN(DispenserPanelTest)

#include "tst_dispenserpanel.moc"
