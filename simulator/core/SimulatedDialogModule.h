#pragma once

#include "host/ID.h"
#include "host/KarvelDialogModule.h"

#include <QPointer>
#include <QString>
#include <QStringList>

class QUuid;

namespace simulator {

class SimulatedSpeech;

/// The dialog engine: it speaks replicas and puts questions to the screen. GUI thread.
class SimulatedDialogModule : public KarvelDialogModule
{
    Q_OBJECT

public:
    /// @p speech is not owned and outlives the module.
    explicit SimulatedDialogModule(SimulatedSpeech *speech, QObject *parent = nullptr);

    void processReplica(const QSharedPointer<Replica> &replica, const bool &terminate) override;
    /// Keeps @p answer and, when @p result is true, speaks its replica.
    void setAnswerResult(const QSharedPointer<Answer> &answer, bool result) override;
    /// A question that was put through the handler before is forgotten.
    void setQuestionHandler(QuestionHandler *handler) override;

    /// Puts a question through the installed handler. Returns false when there is none.
    bool askQuestion(const QString &text, const QStringList &answers);
    /// Withdraws the open question; without one, without effect.
    void cancelQuestion();
    /// The question that waits for an answer; empty when none does.
    QString openQuestion() const;

    void setAnchor(const ID &anchor);
    /// The answer set that is expected next.
    ID anchor() const;

    /// What was played last; null before.
    QSharedPointer<Replica> lastReplica() const;
    QSharedPointer<Answer> lastAnswer() const;

Q_SIGNALS:
    void questionAsked(const QString &text);
    void questionCancelled();
    /// The user's answer, also one that comes when no question is open.
    void questionAnswered(const QString &text);
    void answerTaken(const QString &question);

private:
    void onAnswer(const QUuid &id, const QString &text);
    void speak(const Replica &replica);

    SimulatedSpeech *m_speech;
    QPointer<QuestionHandler> m_handler;
    QString m_openQuestion;
    ID m_anchor;
    QSharedPointer<Replica> m_lastReplica;
    QSharedPointer<Answer> m_lastAnswer;
};

} // namespace simulator
