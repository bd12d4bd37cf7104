#include "simulator/app/SoundPanel.h"

#include "simulator/core/Mixer.h"

#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>

namespace simulator {

namespace {

void showLevel(QSlider *slider, QLabel *number, int level)
{
    // Another thread may have set the mixer again: what shows must not be set back.
    const QSignalBlocker blocker(slider);
    slider->setValue(level);
    number->setText(QString::number(level));
}

} // namespace

SoundPanel::SoundPanel(QWidget *parent)
    : QWidget(parent)
    , m_volume(new QSlider(Qt::Horizontal))
    , m_microphone(new QSlider(Qt::Horizontal))
    , m_volumeNumber(new QLabel)
    , m_microphoneNumber(new QLabel)
{
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(8);
    addLevel(grid, tr("Loudspeaker"), m_volume, m_volumeNumber);
    addLevel(grid, tr("Microphone"), m_microphone, m_microphoneNumber);
    grid->setRowStretch(grid->rowCount(), 1);
    m_volume->setObjectName(QStringLiteral("volume"));
    m_volumeNumber->setObjectName(QStringLiteral("volumeNumber"));
    m_microphone->setObjectName(QStringLiteral("microphone"));
    m_microphoneNumber->setObjectName(QStringLiteral("microphoneNumber"));

    // The mixer reports on the threads that set it; the panel hears of it on its own.
    Mixer *mixer = &Mixer::instance();
    connect(m_volume, &QSlider::valueChanged, this,
            [mixer](int volume) { mixer->setSoundVolume(volume); });
    connect(m_microphone, &QSlider::valueChanged, this,
            [mixer](int level) { mixer->setMicrophoneLevel(level); });
    connect(mixer, &Mixer::soundVolumeChanged, this, &SoundPanel::showLevels);
    connect(mixer, &Mixer::microphoneLevelChanged, this, &SoundPanel::showLevels);
    showLevels();
}

void SoundPanel::addLevel(QGridLayout *grid, const QString &name, QSlider *slider, QLabel *number)
{
    slider->setRange(0, 100);
    number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    number->setMinimumWidth(number->fontMetrics().horizontalAdvance(QStringLiteral("100")));
    const int row = grid->rowCount();
    grid->addWidget(new QLabel(name), row, 0);
    grid->addWidget(slider, row, 1);
    grid->addWidget(number, row, 2);
}

void SoundPanel::showLevels()
{
    showLevel(m_volume, m_volumeNumber, Mixer::instance().soundVolume());
    showLevel(m_microphone, m_microphoneNumber, Mixer::instance().microphoneLevel());
}

} // namespace simulator
