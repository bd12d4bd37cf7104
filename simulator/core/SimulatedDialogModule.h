#pragma once

#include "host/Answer.h"
#include "host/ID.h"
#include "host/KarvelDialogModule.h"
#include "host/Replica.h"
#include "host/UserData.h"
#include "simulator/core/OpenQuestion.h"
#include "simulator/core/Pace.h"

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QTimer>

class QUuid;

namespace simulator {

class SimulatedReplicas;
class SimulatedSpeech;

/// The dialog engine: it greets, finds answers to what is said, speaks replicas and puts questions
/// to the screen, all out of the stock's scenario. Each signal about a replica comes before it is
/// spoken. GUI thread.
class SimulatedDialogModule : public KarvelDialogModule
{
    Q_OBJECT

public:
    /// @p speech and @p replicas are not owned and outlive the module.
    SimulatedDialogModule(SimulatedSpeech *speech, SimulatedReplicas *replicas, const Pace &pace,
                          QObject *parent = nullptr);

    // What the screen asks for.

    /// Speaks @p replica. With @p terminate false the turn goes on: when the replica is a question
    /// of the scenario, it is asked.
    void processReplica(const QSharedPointer<Replica> &replica, const bool &terminate) override;
    /// Keeps @p answer and, when @p result is true, goes on with its replica. One without a text is
    /// looked up in the scenario: by its ID, by the answer's pattern, by what was said.
    void setAnswerResult(const QSharedPointer<Answer> &answer, bool result) override;
    /// A question that was put through the handler before is forgotten.
    void setQuestionHandler(QuestionHandler *handler) override;

    // What happens before the robot.

    /// Somebody comes, and is greeted.
    void meet(const UserData &person);
    /// They leave: the open question is withdrawn and no answer set is active.
    void part();
    /// Somebody says @p text. Answered only when it @p isFinal, and no longer changes.
    void hear(const QString &text, bool isFinal);
    /// Says something unasked. Happens by itself too, when a person is there and nothing is said.
    void sayExtra();
    /// How long it takes until it happens, in milliseconds of the robot's time.
    void setExtraInterval(int milliseconds);

    /// Puts a question through the installed handler. Returns false when there is none. An answer
    /// is taken like something that was said.
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
    void heard(const QString &text, bool isFinal);
    void greetingChosen(const QSharedPointer<Replica> &replica);
    void extraReplicaChosen(const QSharedPointer<Replica> &replica);
    void answerFound(const QSharedPointer<Answer> &answer);

    void questionAsked(const QString &text);
    void questionCancelled();
    /// The user's answer, also one that comes when no question is open.
    void questionAnswered(const QString &text);
    /// An answer that the screen chose.
    void answerTaken(const QString &question);

private:
    void onAnswer(const QUuid &id, const QString &text);
    void onWordsChanged();
    void onSilence();
    void takeChoice(int choice, const QString &text);
    bool answerFromPatterns(const QString &text);
    void clarify(const QString &text);
    void deliver(Answer::Source source, const ID &pattern, const QString &patternText,
                 const QString &question, const Replica &replica);
    void play(const QSharedPointer<Replica> &replica);
    void askChoicesOf(const Replica &replica, bool repeat);
    void showQuestion(bool repeat);
    void waitForSilence();

    SimulatedSpeech *m_speech;
    SimulatedReplicas *m_replicas;
    Pace m_pace;
    QPointer<QuestionHandler> m_handler;
    OpenQuestion m_question;
    ID m_anchor;
    QSharedPointer<Replica> m_lastReplica;
    QSharedPointer<Answer> m_lastAnswer;
    QTimer m_silence;
    int m_extraInterval = 45000;
    unsigned m_answers = 0; // given so far
    bool m_personThere = false;
    UserData m_person;
};

} // namespace simulator
