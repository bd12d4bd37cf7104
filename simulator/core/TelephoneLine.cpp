#include "simulator/core/TelephoneLine.h"

namespace simulator {

TelephoneLine &TelephoneLine::instance()
{
    static TelephoneLine line;
    return line;
}

void TelephoneLine::setOutcome(Outcome outcome)
{
    if (m_outcome == outcome)
        return;
    m_outcome = outcome;
    Q_EMIT outcomeChanged(outcome);
}

TelephoneLine::Outcome TelephoneLine::outcome() const { return m_outcome; }

void TelephoneLine::pressKey(int tone) { Q_EMIT keyPressed(tone); }

void TelephoneLine::hangUp() { Q_EMIT hungUp(); }

void TelephoneLine::setPace(const Pace &pace) { m_pace = pace; }

void TelephoneLine::setTimes(int dialling, int ringing, int playing)
{
    m_dialling = dialling;
    m_ringing = ringing;
    m_playing = playing;
}

int TelephoneLine::diallingTime() const { return m_pace.milliseconds(m_dialling); }

int TelephoneLine::ringingTime() const { return m_pace.milliseconds(m_ringing); }

int TelephoneLine::playingTime() const { return m_pace.milliseconds(m_playing); }

CallState TelephoneLine::state() const { return m_state; }

QString TelephoneLine::number() const { return m_number; }

void TelephoneLine::reportDialled(const QString &number)
{
    m_number = number;
    Q_EMIT dialled(number);
}

void TelephoneLine::reportState(CallState state)
{
    if (m_state == state)
        return;
    m_state = state;
    Q_EMIT stateChanged(state);
}

} // namespace simulator
