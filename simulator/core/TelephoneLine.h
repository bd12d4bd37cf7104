#pragma once

#include "host/CallState.h"
#include "simulator/core/Pace.h"

#include <QObject>
#include <QString>

namespace simulator {

/// The telephone network as every SIPMaster of this process sees it: it says what becomes of the
/// calls. One object, made on its first use and kept until the program ends. GUI thread.
class TelephoneLine : public QObject
{
    Q_OBJECT

public:
    /// What happens at the other end when the telephone rings there.
    enum class Outcome { Answered, Busy, NoAnswer };

    static TelephoneLine &instance();

    /// Holds for every call whose dialling ends from now on.
    void setOutcome(Outcome outcome);
    Outcome outcome() const;

    // The tones of the keys that are no digit.
    static const int StarTone = 10;
    static const int HashTone = 11;

    /// The called party of a call that is answered presses a key. @p tone is 0 to 9 for the digits,
    /// 10 for * and 11 for #.
    void pressKey(int tone);
    /// The called party of a call that is answered hangs up.
    void hangUp();

    void setPace(const Pace &pace);
    /// In milliseconds of the robot's time: how long the line is silent before it rings, how long
    /// it rings before somebody answers or nobody does, how long a message takes to be played.
    void setTimes(int dialling, int ringing, int playing);
    /// The same in real milliseconds.
    int diallingTime() const;
    int ringingTime() const;
    int playingTime() const;

    /// How the call stands that was made last, ordinary or queued; Idle before the first.
    CallState state() const;
    /// The number dialled last; empty before the first call.
    QString number() const;

    /// Called by a SIPMaster that dials.
    void reportDialled(const QString &number);
    /// Called by a SIPMaster whose call goes on or ends.
    void reportState(CallState state);

Q_SIGNALS:
    void outcomeChanged(TelephoneLine::Outcome outcome);
    void dialled(const QString &number);
    void stateChanged(CallState state);
    void keyPressed(int tone);
    void hungUp();

private:
    TelephoneLine() = default;

    Pace m_pace;
    Outcome m_outcome = Outcome::Answered;
    CallState m_state = CallStateIdle;
    QString m_number;
    int m_dialling = 300;
    int m_ringing = 1500;
    int m_playing = 3000;
};

} // namespace simulator
