#pragma once

#include "host/Export.h"

#include <QString>

/// System functions of the robot platform. The robot core defines them.
namespace karvel {

/// Runs a shell command and returns its standard output, unaltered. Blocks until it has ended.
PANOREL_HOST_EXPORT QString exec(const QString &command);

/// Playback volume, in the mixer's scale.
PANOREL_HOST_EXPORT int getSoundVolume();
PANOREL_HOST_EXPORT void setSoundVolume(const int &volume);

/// Microphone level, in the mixer's scale.
PANOREL_HOST_EXPORT int getMicVolume();
PANOREL_HOST_EXPORT void setMicVolume(const int &volume);

} // namespace karvel
