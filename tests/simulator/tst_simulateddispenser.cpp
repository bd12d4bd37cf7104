#include "simulator/core/SimulatedDispenser.h"

#include "tests/support/TestCase.h"

using simulator::Pace;
using simulator::SimulatedDispenser;

class SimulatedDispenserTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void handsOutACard();
    void reportsTheLastCards_data();
    void reportsTheLastCards();
    void reportsWhyThereIsNoCard();
    void isBusyWithTheCardBefore();
    void passesAnyStatusWord();
    void tellsOfAFullBin();
    void theCardStaysAtTheExit();
    void reportsItsCards();
    void reportsWhatWasSwitched();

protected:
    void setUp() override
    {
        m_dispenser.reset(new SimulatedDispenser(Pace()));
        m_dispenser->setIssueTime(5);
        m_words.clear();
        connect(m_dispenser.data(), &IDispenser::statusChanged, this,
                [this](unsigned short word) { m_words.append(word); });
    }
    void tearDown() override { m_dispenser.reset(); }

private:
    QScopedPointer<SimulatedDispenser> m_dispenser;
    QList<int> m_words;
};

void SimulatedDispenserTest::handsOutACard()
{
    const int cards = m_dispenser->cards();
    m_dispenser->issueCard(4);
    QCOMPARE(m_dispenser->position(), 4);
    QTRY_COMPARE(m_words, (QList<int>{0x0800, 0x0004}));
    QCOMPARE(m_dispenser->cards(), cards - 1);
    m_dispenser->takeCard();
    QCOMPARE(m_words.last(), 0);
    m_dispenser->takeCard(); // there is none any more
    QCOMPARE(m_words.size(), 3);
}

void SimulatedDispenserTest::reportsTheLastCards_data()
{
    QTest::addColumn<int>("cards");
    QTest::addColumn<int>("word");
    QTest::newRow("few") << 3 << 0x0014;
    QTest::newRow("last") << 1 << 0x000c;
}

void SimulatedDispenserTest::reportsTheLastCards()
{
    QFETCH(int, cards);
    m_dispenser->setCards(cards);
    m_words.clear();
    m_dispenser->issueCard(4);
    QTRY_COMPARE(m_words.size(), 2);
    QTEST(m_words.at(1), "word");
}

void SimulatedDispenserTest::reportsWhyThereIsNoCard()
{
    m_dispenser->setJammed(true);
    m_dispenser->issueCard(4);
    QCOMPARE(m_words.last(), 0x0120);
    m_dispenser->setCards(0);
    m_dispenser->issueCard(4);
    QCOMPARE(m_words.last(), 0x0008);
    m_dispenser->setConnected(false);
    QVERIFY(!m_dispenser->isConnected());
    m_words.clear();
    m_dispenser->issueCard(4);
    QCOMPARE(m_words, QList<int>{0x8000});
}

void SimulatedDispenserTest::isBusyWithTheCardBefore()
{
    const int cards = m_dispenser->cards();
    m_dispenser->issueCard(4);
    m_dispenser->issueCard(4);
    QTRY_COMPARE(m_words, (QList<int>{0x0800, 0x0800, 0x0004}));
    QCOMPARE(m_dispenser->cards(), cards - 1);
}

void SimulatedDispenserTest::passesAnyStatusWord()
{
    m_dispenser->injectStatus(0xffff);
    QCOMPARE(m_words, QList<int>{0xffff});
    QCOMPARE(m_dispenser->status(), static_cast<unsigned short>(0xffff));
}

void SimulatedDispenserTest::tellsOfAFullBin()
{
    m_dispenser->setBinFull(true);
    QCOMPARE(m_words, QList<int>{0x1000});
    m_dispenser->issueCard(4); // all the same
    QTRY_COMPARE(m_words, (QList<int>{0x1000, 0x0800, 0x1004}));
    m_dispenser->takeCard();
    QCOMPARE(m_words.last(), 0x1000);
    m_dispenser->setBinFull(false);
    QCOMPARE(m_words.last(), 0);
    m_dispenser->setConnected(false);
    m_words.clear();
    m_dispenser->setBinFull(true);
    QVERIFY(m_words.isEmpty());
    m_dispenser->setConnected(true);
    QCOMPARE(m_words, QList<int>{0x1000});
}

void SimulatedDispenserTest::theCardStaysAtTheExit()
{
    m_dispenser->issueCard(4);
    QTRY_COMPARE(m_words.size(), 2);
    m_dispenser->setCards(2);
    QCOMPARE(m_words.last(), 0x0014);
    m_dispenser->takeCard();
    QCOMPARE(m_words.last(), 0x0010);
}

void SimulatedDispenserTest::reportsItsCards()
{
    QSignalSpy cards(m_dispenser.data(), &SimulatedDispenser::cardsChanged);
    m_dispenser->setCards(9);
    m_dispenser->setCards(9);
    m_dispenser->issueCard(4);
    QTRY_COMPARE(cards.count(), 2);
    QCOMPARE(cards.at(0).at(0).toInt(), 9);
    QCOMPARE(cards.at(1).at(0).toInt(), 8);
}

void SimulatedDispenserTest::reportsWhatWasSwitched()
{
    QSignalSpy jammed(m_dispenser.data(), &SimulatedDispenser::jammedChanged);
    QSignalSpy full(m_dispenser.data(), &SimulatedDispenser::binFullChanged);
    for (int i = 0; i < 2; ++i) {
        m_dispenser->setJammed(true);
        m_dispenser->setBinFull(true);
    }
    QCOMPARE(jammed.count(), 1);
    QCOMPARE(full.count(), 1);
    QVERIFY(m_dispenser->isJammed());
    QVERIFY(m_dispenser->isBinFull());
}

QTEST_GUILESS_MAIN(SimulatedDispenserTest)

#include "tst_simulateddispenser.moc"
