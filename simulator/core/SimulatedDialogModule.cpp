#include "simulator/core/SimulatedDialogModule.h"

#include "host/DatabaseDefaults.h"
#include "host/QuestionHandler.h"
#include "simulator/core/SimulatedReplicas.h"
#include "simulator/core/SimulatedSpeech.h"

#include <QUuid>

namespace simulator {

namespace {

QVariant generalCategory() { return QVariant::fromValue(DatabaseDefaults::defaultCategory()); }

} // namespace

SimulatedDialogModule::SimulatedDialogModule(SimulatedSpeech *speech, SimulatedReplicas *replicas,
                                             const Pace &pace, QObject *parent)
    : KarvelDialogModule(parent)
    , m_speech(speech)
    , m_replicas(replicas)
    , m_pace(pace)
{
    m_silence.setSingleShot(true);
    connect(&m_silence, &QTimer::timeout, this, &SimulatedDialogModule::onSilence);
    connect(m_speech, &SimulatedSpeech::finished, this, &SimulatedDialogModule::waitForSilence);
    connect(m_replicas, &SimulatedReplicas::wordsChanged, this,
            &SimulatedDialogModule::onWordsChanged);
}

void SimulatedDialogModule::processReplica(const QSharedPointer<Replica> &replica,
                                           const bool &terminate)
{
    if (!replica)
        return;
    m_lastReplica = replica;
    m_speech->say(replica->text());
    if (!terminate)
        askChoicesOf(*replica, false);
}

void SimulatedDialogModule::setAnswerResult(const QSharedPointer<Answer> &answer, bool result)
{
    if (!answer)
        return;
    m_lastAnswer = answer;
    Q_EMIT answerTaken(answer->question());
    if (!result)
        return;
    if (m_question.isOpen())
        cancelQuestion();

    Replica replica = answer->replica();
    if (replica.text().isEmpty()) {
        const DialogScenario &scenario = m_replicas->scenario();
        const DialogScenario::Pattern *pattern = scenario.pattern(answer->idPattern());
        if (!pattern)
            pattern = scenario.match(answer->question(), m_replicas->language(), m_anchor).pattern;
        if (const DialogScenario::Line *line = scenario.line(replica.id()))
            replica = m_replicas->named(line->name);
        else if (pattern)
            replica = m_replicas->named(m_replicas->nextOf(pattern->answers));
        if (replica.text().isEmpty())
            return; // an answer to nothing: what is expected stays
    }
    play(QSharedPointer<Replica>::create(replica));
}

void SimulatedDialogModule::setQuestionHandler(QuestionHandler *handler)
{
    if (m_handler)
        disconnect(m_handler, nullptr, this, nullptr);
    m_question = {};
    m_handler = handler;
    if (m_handler)
        connect(m_handler, &QuestionHandler::hasAnswer, this, &SimulatedDialogModule::onAnswer);
}

void SimulatedDialogModule::meet(const UserData &person)
{
    m_personThere = true;
    m_person = person;
    m_replicas->setPerson(person);
    const auto greeting =
        m_replicas->ofType(Replica::Greeting, generalCategory(), true, true, person.info());
    if (greeting) {
        Q_EMIT greetingChosen(greeting);
        play(greeting);
    }
    waitForSilence();
}

void SimulatedDialogModule::part()
{
    m_personThere = false;
    m_person = UserData();
    m_silence.stop();
    m_replicas->clearPerson();
    m_anchor = ID();
    if (m_question.isOpen())
        cancelQuestion();
}

void SimulatedDialogModule::hear(const QString &text, bool isFinal)
{
    Q_EMIT heard(text, isFinal);
    waitForSilence();
    if (!isFinal || text.trimmed().isEmpty())
        return;
    const bool anyWillDo = m_question.answers.isEmpty();
    if (m_question.isOpen() && (anyWillDo || m_question.answerIn(text) >= 0)) {
        // The page still shows the question. Withdrawn first: the next one may follow at once.
        if (m_handler)
            m_handler->cancel();
        onAnswer(QUuid::createUuid(), text);
        return;
    }
    if (!answerFromPatterns(text))
        clarify(text);
}

void SimulatedDialogModule::sayExtra()
{
    const auto extra =
        m_replicas->ofType(Replica::Extra, generalCategory(), true, true, m_person.info());
    if (!extra)
        return;
    Q_EMIT extraReplicaChosen(extra);
    play(extra);
}

void SimulatedDialogModule::setExtraInterval(int milliseconds)
{
    m_extraInterval = milliseconds;
    waitForSilence();
}

bool SimulatedDialogModule::askQuestion(const QString &text, const QStringList &answers)
{
    if (!m_handler)
        return false;
    const bool repeat = m_question.text == text;
    m_question = {text, answers, QString()};
    showQuestion(repeat);
    return true;
}

void SimulatedDialogModule::cancelQuestion()
{
    m_question = {};
    if (!m_handler || !m_handler->inWork())
        return;
    m_handler->cancel();
    Q_EMIT questionCancelled();
}

QString SimulatedDialogModule::openQuestion() const { return m_question.text; }

void SimulatedDialogModule::setAnchor(const ID &anchor) { m_anchor = anchor; }

ID SimulatedDialogModule::anchor() const { return m_anchor; }

QSharedPointer<Replica> SimulatedDialogModule::lastReplica() const { return m_lastReplica; }

QSharedPointer<Answer> SimulatedDialogModule::lastAnswer() const { return m_lastAnswer; }

void SimulatedDialogModule::onAnswer(const QUuid &id, const QString &text)
{
    Q_UNUSED(id)
    waitForSilence();
    const int choice = m_question.answerIn(text);
    if (!m_question.isOpen() || m_question.answers.isEmpty()) {
        // Nothing to choose from. What matches nothing is let pass: the page may send twice.
        m_question = {};
        Q_EMIT questionAnswered(text);
        answerFromPatterns(text);
    } else if (choice >= 0) {
        takeChoice(choice, text);
    } else {
        Q_EMIT questionAnswered(text);
        clarify(text);
        showQuestion(true);
    }
}

// An open question follows the robot's language.
void SimulatedDialogModule::onWordsChanged()
{
    if (m_question.line.isEmpty())
        return;
    const Replica replica = m_replicas->named(m_question.line);
    const DialogScenario::Line *line = m_replicas->scenario().line(m_question.line);
    if (line && !line->choices.isEmpty())
        askChoicesOf(replica, true);
    else
        cancelQuestion();
}

void SimulatedDialogModule::onSilence()
{
    if (!m_speech->isSpeaking() && !m_question.isOpen())
        sayExtra();
    waitForSilence();
}

void SimulatedDialogModule::takeChoice(int choice, const QString &text)
{
    const QString chosen = m_question.answers.at(choice);
    const DialogScenario::Line *asked = m_replicas->scenario().line(m_question.line);
    m_question = {};
    Q_EMIT questionAnswered(text);
    if (asked && choice < asked->choices.size()) {
        const QString next = asked->choices.at(choice).answer;
        deliver(Answer::Question, asked->id, chosen, text, m_replicas->named(next));
    } else {
        answerFromPatterns(text);
    }
}

bool SimulatedDialogModule::answerFromPatterns(const QString &text)
{
    const DialogScenario::Match match =
        m_replicas->scenario().match(text, m_replicas->language(), m_anchor);
    if (!match.pattern)
        return false;
    const QString next = m_replicas->nextOf(match.pattern->answers);
    deliver(Answer::Pattern, match.pattern->id, match.source, text, m_replicas->named(next));
    return true;
}

void SimulatedDialogModule::clarify(const QString &text)
{
    const auto replica =
        m_replicas->ofType(Replica::Clarification, generalCategory(), true, true, m_person.info());
    if (replica)
        deliver(Answer::Fallback, ID(), QString(), text, *replica);
}

void SimulatedDialogModule::deliver(Answer::Source source, const ID &pattern,
                                    const QString &patternText, const QString &question,
                                    const Replica &replica)
{
    const auto answer = QSharedPointer<Answer>::create();
    answer->setId(ID(++m_answers, QUuid::createUuid()));
    answer->setSource(source);
    answer->setIdPattern(pattern);
    answer->setPattern(patternText);
    answer->setQuestion(question);
    answer->setReplica(replica);
    m_lastAnswer = answer;
    Q_EMIT answerFound(answer);
    play(QSharedPointer<Replica>::create(replica));
}

void SimulatedDialogModule::play(const QSharedPointer<Replica> &replica)
{
    // What is said in passing does not change what is expected.
    const bool inPassing =
        replica->type() == Replica::Clarification || replica->type() == Replica::Extra;
    if (!inPassing || replica->anchor() != ID())
        m_anchor = replica->anchor();
    processReplica(replica, false);
}

void SimulatedDialogModule::askChoicesOf(const Replica &replica, bool repeat)
{
    const DialogScenario::Line *line = m_replicas->scenario().line(replica.id());
    if (!line || line->choices.isEmpty() || !m_handler)
        return;
    m_question.line = line->name;
    m_question.text = replica.screenText().isEmpty() ? replica.text() : replica.screenText();
    m_question.answers.clear();
    for (const DialogScenario::Choice &choice : line->choices)
        m_question.answers.append(m_replicas->filled(choice.texts.value(m_replicas->language())));
    showQuestion(repeat);
}

void SimulatedDialogModule::showQuestion(bool repeat)
{
    // The handler may alter what it gets; the texts here stay as they are.
    QString question = m_question.text;
    QStringList answers = m_question.answers;
    if (m_handler)
        m_handler->setQuestion(question, answers, repeat);
    Q_EMIT questionAsked(m_question.text);
}

void SimulatedDialogModule::waitForSilence()
{
    if (m_personThere)
        m_silence.start(m_pace.milliseconds(m_extraInterval));
}

} // namespace simulator
