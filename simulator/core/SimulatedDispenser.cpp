#include "simulator/core/SimulatedDispenser.h"

namespace simulator {

namespace {

const int FewCards = 3;

} // namespace

SimulatedDispenser::SimulatedDispenser(const Pace &pace, QObject *parent)
    : IDispenser(parent)
    , m_pace(pace)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &SimulatedDispenser::onIssued);
}

bool SimulatedDispenser::isConnected() { return m_connected; }

void SimulatedDispenser::issueCard(const int &position)
{
    m_position = position;
    if (!m_connected) {
        report(NotConnected);
    } else if (m_timer.isActive()) {
        report(CardDispensing); // still busy with the card before
    } else if (m_cards == 0) {
        report(CardEmpty);
    } else if (m_jammed) {
        report(Codes(CardJam) | DispenseError);
    } else {
        m_timer.start(m_pace.milliseconds(m_issueTime));
        report(CardDispensing);
    }
}

void SimulatedDispenser::setConnected(bool connected)
{
    if (m_connected == connected)
        return;
    m_connected = connected;
    m_timer.stop();
    report(connected ? supply() : Codes(NotConnected));
}

void SimulatedDispenser::setCards(int cards)
{
    const int before = m_cards;
    m_cards = qMax(0, cards);
    if (m_cards != before)
        Q_EMIT cardsChanged(m_cards);
    reportSupply();
}

int SimulatedDispenser::cards() const { return m_cards; }

void SimulatedDispenser::setJammed(bool jammed)
{
    if (m_jammed == jammed)
        return;
    m_jammed = jammed;
    Q_EMIT jammedChanged(jammed);
}

bool SimulatedDispenser::isJammed() const { return m_jammed; }

void SimulatedDispenser::setBinFull(bool full)
{
    if (m_binFull == full)
        return;
    m_binFull = full;
    Q_EMIT binFullChanged(full);
    reportSupply();
}

bool SimulatedDispenser::isBinFull() const { return m_binFull; }

void SimulatedDispenser::takeCard()
{
    if ((m_status & DispenseSensor) != 0)
        report(supply());
}

void SimulatedDispenser::injectStatus(unsigned short code)
{
    m_status = code;
    Q_EMIT statusChanged(code);
}

unsigned short SimulatedDispenser::status() const { return m_status; }

int SimulatedDispenser::position() const { return m_position; }

void SimulatedDispenser::setIssueTime(int milliseconds) { m_issueTime = milliseconds; }

void SimulatedDispenser::onIssued()
{
    if (m_cards > 0)
        Q_EMIT cardsChanged(--m_cards);
    report(Codes(DispenseSensor) | supply());
}

// A card at the exit stays there.
void SimulatedDispenser::reportSupply()
{
    if (m_connected && !m_timer.isActive())
        report(Codes(m_status & DispenseSensor) | supply());
}

IDispenser::Codes SimulatedDispenser::supply() const
{
    Codes codes;
    codes.setFlag(CardBinFull, m_binFull);
    codes.setFlag(CardEmpty, m_cards == 0);
    codes.setFlag(CardPreEmpty, m_cards > 0 && m_cards <= FewCards);
    return codes;
}

void SimulatedDispenser::report(Codes codes)
{
    injectStatus(static_cast<unsigned short>(static_cast<int>(codes)));
}

} // namespace simulator
