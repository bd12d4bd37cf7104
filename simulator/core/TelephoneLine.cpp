#include "simulator/core/TelephoneLine.h"

namespace simulator {

TelephoneLine &TelephoneLine::instance()
{
    static TelephoneLine line;
    return line;
}

void TelephoneLine::setOutcome(Outcome outcome) { m_outcome = outcome; }

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

void TelephoneLine::reportDialled(const QString &number) { Q_EMIT dialled(number); }

} // namespace simulator
