#include "simulator/core/Mixer.h"

namespace simulator {

Mixer &Mixer::instance()
{
    static Mixer mixer;
    return mixer;
}

int Mixer::soundVolume() const { return m_soundVolume; }

void Mixer::setSoundVolume(int volume)
{
    const int held = qBound(0, volume, 100);
    if (m_soundVolume.exchange(held) != held)
        Q_EMIT soundVolumeChanged();
}

int Mixer::microphoneLevel() const { return m_microphoneLevel; }

void Mixer::setMicrophoneLevel(int level)
{
    const int held = qBound(0, level, 100);
    if (m_microphoneLevel.exchange(held) != held)
        Q_EMIT microphoneLevelChanged();
}

} // namespace simulator
