#pragma once

#include <QMetaType>

/// Progress of an ordinary telephone call. Travels as its integer value.
enum CallState : int {
    CallStateIdle = 0,
    CallStateCalling = 1,
    CallStateRinging = 2,
    CallStateConnected = 3,
    CallStateBusy = 4,
    CallStateFailed = 5,
    CallStateEnded = 6,
};

Q_DECLARE_METATYPE(CallState)
