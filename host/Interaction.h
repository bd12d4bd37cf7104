#pragma once

#include <QMetaType>

namespace Interaction {

/// Why an interaction with a user started. Travels as its integer value.
enum Reason : int {
    Unknown = 0,
    FaceDetected = 1,
    SpeechHeard = 2,
    ScreenTouched = 3,
    Requested = 4,
};

} // namespace Interaction

Q_DECLARE_METATYPE(Interaction::Reason)
