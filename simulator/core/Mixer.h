#pragma once

#include <atomic>

namespace simulator {

/// The robot's sound mixer, which the volume functions of the platform read and set. Levels run
/// from 0 to 100. One object, made on its first use and kept until the program ends. May be used
/// on any thread.
class Mixer
{
public:
    static Mixer &instance();

    int soundVolume() const;
    /// Held within 0 and 100.
    void setSoundVolume(int volume);

    int microphoneLevel() const;
    /// Held within 0 and 100.
    void setMicrophoneLevel(int level);

private:
    Mixer() = default;

    std::atomic<int> m_soundVolume{50};
    std::atomic<int> m_microphoneLevel{70};
};

} // namespace simulator
