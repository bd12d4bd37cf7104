#include "simulator/core/Mixer.h"

#include <QtGlobal>

namespace simulator {

Mixer &Mixer::instance()
{
    static Mixer mixer;
    return mixer;
}

int Mixer::soundVolume() const { return m_soundVolume; }

void Mixer::setSoundVolume(int volume) { m_soundVolume = qBound(0, volume, 100); }

int Mixer::microphoneLevel() const { return m_microphoneLevel; }

void Mixer::setMicrophoneLevel(int level) { m_microphoneLevel = qBound(0, level, 100); }

} // namespace simulator
