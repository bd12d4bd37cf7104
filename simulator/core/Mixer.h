#pragma once

#include <QObject>

#include <atomic>

namespace simulator {

/// The robot's sound mixer, which the volume functions of the platform read and set. Levels run
/// from 0 to 100. One object, made on its first use and kept until the program ends. May be used
/// on any thread.
class Mixer : public QObject
{
    Q_OBJECT

public:
    static Mixer &instance();

    int soundVolume() const;
    /// Held within 0 and 100.
    void setSoundVolume(int volume);

    int microphoneLevel() const;
    /// Held within 0 and 100.
    void setMicrophoneLevel(int level);

Q_SIGNALS:
    // Each comes on the thread that set the level, and carries none: where several threads set it,
    // only what the mixer gives when the signal arrives is sure to be the level.
    void soundVolumeChanged();
    void microphoneLevelChanged();

private:
    Mixer() = default;

    std::atomic<int> m_soundVolume{50};
    std::atomic<int> m_microphoneLevel{70};
};

} // namespace simulator
