#pragma once

#include "simulator/core/Pace.h"

#include <QObject>
#include <QSharedPointer>
#include <QString>
#include <QTimer>

namespace simulator {

class SimulatedMacrosReplacer;

/// The robot's voice without a sound: a line lasts about as long as a person needs to speak it.
/// GUI thread.
class SimulatedSpeech : public QObject
{
    Q_OBJECT

public:
    SimulatedSpeech(const QSharedPointer<SimulatedMacrosReplacer> &replacer, const Pace &pace,
                    QObject *parent = nullptr);

    /// Speaks @p text with its macros expanded. A line that is being spoken gives way. A text
    /// that is empty, or becomes so, is not spoken.
    void say(const QString &text);
    /// Ends the line at once.
    void cancel();

    bool isSpeaking() const;
    /// The line that is being spoken, macros expanded; empty when the robot is silent.
    QString text() const;

    /// How long @p text takes to speak, in milliseconds of the robot's time.
    static int duration(const QString &text);

Q_SIGNALS:
    void started(const QString &text);
    /// The robot falls silent, whether the line was spoken to its end or not. Lines that gave way
    /// to another do not finish.
    void finished();

private:
    QSharedPointer<SimulatedMacrosReplacer> m_replacer;
    Pace m_pace;
    QTimer m_timer;
    QString m_text;
};

} // namespace simulator
