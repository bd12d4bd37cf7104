#pragma once

#include <QWidget>

class QGridLayout;
class QLabel;
class QSlider;

namespace simulator {

/// The volumes of loudspeaker and microphone.
class SoundPanel : public QWidget
{
    Q_OBJECT

public:
    explicit SoundPanel(QWidget *parent = nullptr);

private:
    void addLevel(QGridLayout *grid, const QString &name, QSlider *slider, QLabel *number);
    void showLevels();

    QSlider *m_volume;
    QSlider *m_microphone;
    QLabel *m_volumeNumber;
    QLabel *m_microphoneNumber;
};

} // namespace simulator
