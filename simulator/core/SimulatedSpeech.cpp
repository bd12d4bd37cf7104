#include "simulator/core/SimulatedSpeech.h"

#include "simulator/core/SimulatedMacrosReplacer.h"

namespace simulator {

namespace {

const int CharacterTime = 60;
const int ShortestLine = 600;

} // namespace

SimulatedSpeech::SimulatedSpeech(const QSharedPointer<SimulatedMacrosReplacer> &replacer,
                                 const Pace &pace, QObject *parent)
    : QObject(parent)
    , m_replacer(replacer)
    , m_pace(pace)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &SimulatedSpeech::cancel);
}

void SimulatedSpeech::say(const QString &text)
{
    const QString expanded = m_replacer->expand(text);
    if (expanded.isEmpty())
        return;

    // A line that takes another's place does not finish it: that would end the turn, and with it
    // the macros that came with this line.
    m_text = expanded;
    m_timer.start(m_pace.milliseconds(duration(expanded)));
    Q_EMIT started(expanded);
}

void SimulatedSpeech::cancel()
{
    if (!isSpeaking())
        return;
    m_timer.stop();
    m_text.clear();
    Q_EMIT finished();
}

bool SimulatedSpeech::isSpeaking() const { return !m_text.isEmpty(); }

QString SimulatedSpeech::text() const { return m_text; }

int SimulatedSpeech::duration(const QString &text)
{
    return qMax(ShortestLine, CharacterTime * qMin(text.size(), 10000));
}

} // namespace simulator
