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
    m_cards = qMax(0, cards);
    if (m_connected && !m_timer.isActive())
        report(supply());
}

int SimulatedDispenser::cards() const { return m_cards; }

void SimulatedDispenser::setJammed(bool jammed) { m_jammed = jammed; }

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
    m_cards = qMax(0, m_cards - 1);
    report(Codes(DispenseSensor) | supply());
}

IDispenser::Codes SimulatedDispenser::supply() const
{
    if (m_cards == 0)
        return CardEmpty;
    return m_cards <= FewCards ? Codes(CardPreEmpty) : Codes();
}

void SimulatedDispenser::report(Codes codes)
{
    injectStatus(static_cast<unsigned short>(static_cast<int>(codes)));
}

} // namespace simulator
