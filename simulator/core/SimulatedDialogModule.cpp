#include "simulator/core/SimulatedDialogModule.h"

#include "host/Answer.h"
#include "host/QuestionHandler.h"
#include "host/Replica.h"
#include "simulator/core/SimulatedSpeech.h"

#include <QUuid>

namespace simulator {

SimulatedDialogModule::SimulatedDialogModule(SimulatedSpeech *speech, QObject *parent)
    : KarvelDialogModule(parent)
    , m_speech(speech)
{ }

void SimulatedDialogModule::processReplica(const QSharedPointer<Replica> &replica,
                                           const bool &terminate)
{
    Q_UNUSED(terminate)
    if (!replica)
        return;
    m_lastReplica = replica;
    speak(*replica);
}

void SimulatedDialogModule::setAnswerResult(const QSharedPointer<Answer> &answer, bool result)
{
    if (!answer)
        return;
    m_lastAnswer = answer;
    Q_EMIT answerTaken(answer->question());
    if (result)
        speak(answer->replica());
}

void SimulatedDialogModule::setQuestionHandler(QuestionHandler *handler)
{
    if (m_handler)
        disconnect(m_handler, nullptr, this, nullptr);
    m_openQuestion.clear();
    m_handler = handler;
    if (m_handler)
        connect(m_handler, &QuestionHandler::hasAnswer, this, &SimulatedDialogModule::onAnswer);
}

bool SimulatedDialogModule::askQuestion(const QString &text, const QStringList &answers)
{
    if (!m_handler)
        return false;
    const bool repeat = m_openQuestion == text;
    m_openQuestion = text;
    // The handler may alter what it gets; the caller's texts stay as they are.
    QString question = text;
    QStringList choices = answers;
    m_handler->setQuestion(question, choices, repeat);
    Q_EMIT questionAsked(text);
    return true;
}

void SimulatedDialogModule::cancelQuestion()
{
    m_openQuestion.clear();
    if (!m_handler || !m_handler->inWork())
        return;
    m_handler->cancel();
    Q_EMIT questionCancelled();
}

QString SimulatedDialogModule::openQuestion() const { return m_openQuestion; }

void SimulatedDialogModule::setAnchor(const ID &anchor) { m_anchor = anchor; }

ID SimulatedDialogModule::anchor() const { return m_anchor; }

QSharedPointer<Replica> SimulatedDialogModule::lastReplica() const { return m_lastReplica; }

QSharedPointer<Answer> SimulatedDialogModule::lastAnswer() const { return m_lastAnswer; }

void SimulatedDialogModule::onAnswer(const QUuid &id, const QString &text)
{
    Q_UNUSED(id)
    m_openQuestion.clear();
    Q_EMIT questionAnswered(text);
}

void SimulatedDialogModule::speak(const Replica &replica) { m_speech->say(replica.text()); }

} // namespace simulator
