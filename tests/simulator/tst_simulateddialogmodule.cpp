#include "simulator/core/SimulatedDialogModule.h"

#include "host/Answer.h"
#include "host/QuestionHandler.h"
#include "simulator/core/SimulatedLanguage.h"
#include "simulator/core/SimulatedMacrosReplacer.h"
#include "simulator/core/SimulatedReplicas.h"
#include "simulator/core/SimulatedSpeech.h"
#include "tests/simulator/TestScenario.h"
#include "tests/support/TestCase.h"

#include <QUuid>

using namespace simulator;

namespace {

class Handler : public QuestionHandler
{
public:
    void setQuestion(QString &question, QStringList &answers, bool repeat) override
    {
        calls.append((repeat ? QStringLiteral("again ") : QString()) + question
                     + QStringLiteral("? ") + answers.join(QLatin1Char('|')));
        question.clear();
        answers.clear();
        working = true;
    }
    void cancel() override
    {
        calls.append(QStringLiteral("cancel"));
        working = false;
    }
    bool inWork() override { return working; }

    QStringList calls;
    bool working = false;
};

} // namespace

class SimulatedDialogModuleTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void asksThroughTheHandler();
    void cannotAskWithoutHandler();
    void takesTheAnswer();
    void withdrawsTheQuestion();
    void forgetsAHandlerThatDied();
    void listensToTheLatestHandlerOnly();
    void speaksAReplica();
    void speaksTheAnswersReplica();
    void survivesNull();

    void greetsWhoComes();
    void answersWhatIsHeard();
    void letsUnfinishedSpeechPass();
    void clarifiesWhatItDoesNotUnderstand();
    void aLineMakesItsAnswerSetActive();
    void theScreenMakesAnAnswerSetActive();
    void goesOnWithTheChoice();
    void aChoiceMayBeSpoken();
    void aQuestionWithoutChoicesTakesAnything();
    void asksAgainAfterAnAnswerThatIsNoChoice();
    void answersWhatIsSaidInsteadOfAChoice();
    void passesAnAnswerWithoutQuestionOn();
    void takesTheAnswerToAnotherQuestionAsSaid();
    void aQuestionFollowsTheLanguage();
    void aQuestionOfAnotherScenarioIsWithdrawn();
    void fillsInTheMacrosOfAQuestion();
    void asksTheScreensReplicaOnlyWhenTheTurnGoesOn();
    void theScreensAnswerWithdrawsTheQuestion();
    void looksUpTheScreensAnswer_data();
    void looksUpTheScreensAnswer();
    void saysSomethingUnasked();
    void saysSomethingUnaskedWhenAPersonIsSilent();
    void staysSilentWithoutAPerson();
    void staysSilentWhileAQuestionIsOpen();
    void forgetsThePersonWhoLeaves();

protected:
    void setUp() override
    {
        m_pace = Pace();
        m_events.clear();
        const auto replacer = QSharedPointer<SimulatedMacrosReplacer>::create();
        m_language.reset(new SimulatedLanguage);
        m_speech.reset(new SimulatedSpeech(replacer, m_pace));
        m_replicas.reset(new SimulatedReplicas(m_language.data(), replacer, {}));
        m_dialog.reset(new SimulatedDialogModule(m_speech.data(), m_replicas.data(), m_pace));
        connect(m_speech.data(), &SimulatedSpeech::started, this,
                [this](const QString &text) { m_events.append(QStringLiteral("says ") + text); });
        const auto tell = [this](const char *what) {
            return [this, what](const QSharedPointer<Replica> &replica) {
                m_events.append(QLatin1String(what) + replica->text());
            };
        };
        connect(m_dialog.data(), &SimulatedDialogModule::heard, this,
                [this](const QString &text) { m_events.append(QStringLiteral("hears ") + text); });
        connect(m_dialog.data(), &SimulatedDialogModule::greetingChosen, this, tell("greets "));
        connect(m_dialog.data(), &SimulatedDialogModule::extraReplicaChosen, this, tell("adds "));
        connect(m_dialog.data(), &SimulatedDialogModule::answerFound, this,
                [this](const QSharedPointer<Answer> &answer) {
                    m_events.append(QStringLiteral("answers ") + answer->replica().text());
                });
    }
    void tearDown() override
    {
        m_dialog.reset();
        m_replicas.reset();
        m_speech.reset();
        m_language.reset();
    }

private:
    /// "way?" is a question with the choices "left" and "right"; "sorry" clarifies; the pattern
    /// "where" asks, "yes" is answered by "good" and, while the set of "way?" is active, by
    /// "expected".
    void setUpTalk()
    {
        TestScenario scenario;
        DialogScenario::Line &way = scenario.addLine(QStringLiteral("way"));
        way.anchor = m_set;
        TestScenario::addChoice(&way, QStringLiteral("left"), QStringLiteral("L"));
        TestScenario::addChoice(&way, QStringLiteral("right"), QStringLiteral("R"));
        m_way = way.id;
        m_left = scenario.addLine(QStringLiteral("L")).id;
        scenario.addLine(QStringLiteral("R"));
        scenario.addLine(QStringLiteral("good"));
        scenario.addLine(QStringLiteral("expected"));
        scenario.addLine(QStringLiteral("sorry"), Replica::Clarification);
        m_where = scenario.addPattern(QStringLiteral("where *"), {QStringLiteral("way")}).id;
        scenario.addPattern(QStringLiteral("yes"), {QStringLiteral("good")});
        scenario.addPattern(QStringLiteral("yes"), {QStringLiteral("expected")}, m_set);
        m_replicas->setScenario(scenario);
        m_dialog->setQuestionHandler(&m_handler);
        m_handler.calls.clear();
        m_handler.working = false;
    }
    void hear(const char *text) { m_dialog->hear(QString::fromLatin1(text), true); }
    void answer(const char *text)
    {
        Q_EMIT m_handler.hasAnswer(QUuid::createUuid(), QLatin1String(text));
    }

    const ID m_set = ID(5, QUuid::createUuid());
    ID m_way;
    ID m_left;
    ID m_where;
    Pace m_pace;
    Handler m_handler;
    QScopedPointer<SimulatedLanguage> m_language;
    QScopedPointer<SimulatedSpeech> m_speech;
    QScopedPointer<SimulatedReplicas> m_replicas;
    QScopedPointer<SimulatedDialogModule> m_dialog;
    QStringList m_events;
};

void SimulatedDialogModuleTest::asksThroughTheHandler()
{
    Handler handler;
    m_dialog->setQuestionHandler(&handler);
    QStringList answers{QStringLiteral("a"), QStringLiteral("b")};
    QVERIFY(m_dialog->askQuestion(QStringLiteral("Where"), answers));
    QCOMPARE(handler.calls, QStringList{QStringLiteral("Where? a|b")});
    QCOMPARE(m_dialog->openQuestion(), QStringLiteral("Where"));
    QCOMPARE(answers.size(), 2);
}

void SimulatedDialogModuleTest::cannotAskWithoutHandler()
{
    QVERIFY(!m_dialog->askQuestion(QStringLiteral("Where"), {}));
    QVERIFY(m_dialog->openQuestion().isEmpty());
    m_dialog->cancelQuestion();
}

void SimulatedDialogModuleTest::takesTheAnswer()
{
    Handler handler;
    m_dialog->setQuestionHandler(&handler);
    QSignalSpy answered(m_dialog.data(), &SimulatedDialogModule::questionAnswered);
    m_dialog->askQuestion(QStringLiteral("Where"), {});
    Q_EMIT handler.hasAnswer(QUuid::createUuid(), QStringLiteral("here"));
    QCOMPARE(answered.count(), 1);
    QCOMPARE(answered.at(0).at(0).toString(), QStringLiteral("here"));
    QVERIFY(m_dialog->openQuestion().isEmpty());
    Q_EMIT handler.hasAnswer(QUuid::createUuid(), QStringLiteral("again"));
    QCOMPARE(answered.count(), 2);
}

void SimulatedDialogModuleTest::withdrawsTheQuestion()
{
    Handler handler;
    m_dialog->setQuestionHandler(&handler);
    QSignalSpy cancelled(m_dialog.data(), &SimulatedDialogModule::questionCancelled);
    m_dialog->cancelQuestion();
    QVERIFY(handler.calls.isEmpty());
    m_dialog->askQuestion(QStringLiteral("Where"), {});
    m_dialog->cancelQuestion();
    m_dialog->cancelQuestion();
    QCOMPARE(handler.calls, (QStringList{QStringLiteral("Where? "), QStringLiteral("cancel")}));
    QCOMPARE(cancelled.count(), 1);
    QVERIFY(m_dialog->openQuestion().isEmpty());
}

void SimulatedDialogModuleTest::forgetsAHandlerThatDied()
{
    {
        Handler handler;
        m_dialog->setQuestionHandler(&handler);
    }
    QVERIFY(!m_dialog->askQuestion(QStringLiteral("Where"), {}));
    m_dialog->cancelQuestion();
}

void SimulatedDialogModuleTest::listensToTheLatestHandlerOnly()
{
    Handler first;
    Handler second;
    m_dialog->setQuestionHandler(&first);
    m_dialog->setQuestionHandler(&second);
    m_dialog->setQuestionHandler(&second);
    QSignalSpy answered(m_dialog.data(), &SimulatedDialogModule::questionAnswered);
    Q_EMIT first.hasAnswer(QUuid::createUuid(), QStringLiteral("one"));
    Q_EMIT second.hasAnswer(QUuid::createUuid(), QStringLiteral("two"));
    QCOMPARE(answered.count(), 1);
    QCOMPARE(answered.at(0).at(0).toString(), QStringLiteral("two"));
}

void SimulatedDialogModuleTest::speaksAReplica()
{
    const auto replica = QSharedPointer<Replica>::create();
    replica->setText(QStringLiteral("Hello"));
    m_dialog->processReplica(replica, true);
    QCOMPARE(m_speech->text(), QStringLiteral("Hello"));
    QCOMPARE(m_dialog->lastReplica(), replica);
}

void SimulatedDialogModuleTest::speaksTheAnswersReplica()
{
    Replica replica;
    replica.setText(QStringLiteral("Over there"));
    const auto answer = QSharedPointer<Answer>::create();
    answer->setReplica(replica);

    m_dialog->setAnswerResult(answer, false);
    QVERIFY(!m_speech->isSpeaking());
    QCOMPARE(m_dialog->lastAnswer(), answer);
    m_dialog->setAnswerResult(answer, true);
    QCOMPARE(m_speech->text(), QStringLiteral("Over there"));
}

void SimulatedDialogModuleTest::survivesNull()
{
    m_dialog->processReplica({}, true);
    m_dialog->setAnswerResult({}, true);
    m_dialog->setQuestionHandler(nullptr);
    QVERIFY(!m_speech->isSpeaking());
}

void SimulatedDialogModuleTest::greetsWhoComes()
{
    TestScenario scenario;
    scenario.addLine(QStringLiteral("hello"), Replica::Greeting);
    DialogScenario::Line &known = scenario.addLine(QStringLiteral("known"), Replica::Greeting);
    known.forKnownPerson = true;
    known.texts[QStringLiteral("en")].text = QStringLiteral("Hello %name%");
    m_replicas->setScenario(scenario);

    m_dialog->meet(UserData());
    QCOMPARE(m_events,
             (QStringList{QStringLiteral("greets hello en"), QStringLiteral("says hello en")}));
    m_events.clear();
    FaceInfo face;
    face.setId(3);
    UserData anna;
    anna.setInfo(face);
    anna.setName(QStringLiteral("Anna"));
    m_dialog->meet(anna);
    QCOMPARE(m_events,
             (QStringList{QStringLiteral("greets Hello Anna"), QStringLiteral("says Hello Anna")}));
}

void SimulatedDialogModuleTest::answersWhatIsHeard()
{
    setUpTalk();
    hear("Where to?");
    QCOMPARE(m_events,
             (QStringList{QStringLiteral("hears Where to?"), QStringLiteral("answers way en"),
                          QStringLiteral("says way en")}));
    const auto answer = m_dialog->lastAnswer();
    QCOMPARE(answer->source(), Answer::Pattern);
    QCOMPARE(answer->idPattern(), m_where);
    QCOMPARE(answer->pattern(), QStringLiteral("where *"));
    QCOMPARE(answer->question(), QStringLiteral("Where to?"));
    QCOMPARE(answer->replica().id(), m_way);
    QVERIFY(!answer->id().uuid().isNull());
    QCOMPARE(m_dialog->lastReplica()->id(), m_way);
}

void SimulatedDialogModuleTest::letsUnfinishedSpeechPass()
{
    setUpTalk();
    m_dialog->hear(QStringLiteral("Where"), false);
    m_dialog->hear(QStringLiteral(" "), true);
    QCOMPARE(m_events, (QStringList{QStringLiteral("hears Where"), QStringLiteral("hears  ")}));
}

void SimulatedDialogModuleTest::clarifiesWhatItDoesNotUnderstand()
{
    setUpTalk();
    m_dialog->setAnchor(m_set);
    hear("Blah");
    QCOMPARE(m_events.mid(1),
             (QStringList{QStringLiteral("answers sorry en"), QStringLiteral("says sorry en")}));
    QCOMPARE(m_dialog->lastAnswer()->source(), Answer::Fallback);
    QCOMPARE(m_dialog->lastAnswer()->question(), QStringLiteral("Blah"));
    QCOMPARE(m_dialog->lastAnswer()->idPattern(), ID());
    // What was expected still is.
    QCOMPARE(m_dialog->anchor(), m_set);
}

void SimulatedDialogModuleTest::aLineMakesItsAnswerSetActive()
{
    setUpTalk();
    hear("yes");
    QCOMPARE(m_events.last(), QStringLiteral("says good en"));
    hear("where");
    QCOMPARE(m_dialog->anchor(), m_set);
    hear("yes");
    QCOMPARE(m_events.last(), QStringLiteral("says expected en"));
    QCOMPARE(m_dialog->anchor(), ID());
}

void SimulatedDialogModuleTest::theScreenMakesAnAnswerSetActive()
{
    setUpTalk();
    m_dialog->setAnchor(m_set);
    hear("yes");
    QCOMPARE(m_events.last(), QStringLiteral("says expected en"));
}

void SimulatedDialogModuleTest::goesOnWithTheChoice()
{
    setUpTalk();
    hear("where");
    QCOMPARE(m_handler.calls, QStringList{QStringLiteral("WAY EN? left|right")});
    QCOMPARE(m_dialog->openQuestion(), QStringLiteral("WAY EN"));
    m_events.clear();
    answer("left");
    QCOMPARE(m_events, (QStringList{QStringLiteral("answers L en"), QStringLiteral("says L en")}));
    QCOMPARE(m_dialog->lastAnswer()->source(), Answer::Question);
    QCOMPARE(m_dialog->lastAnswer()->idPattern(), m_way);
    QCOMPARE(m_dialog->lastAnswer()->pattern(), QStringLiteral("left"));
    QVERIFY(m_dialog->openQuestion().isEmpty());
    QCOMPARE(m_handler.calls.size(), 1);
}

void SimulatedDialogModuleTest::aChoiceMayBeSpoken()
{
    setUpTalk();
    hear("where");
    hear("To the right, please");
    QCOMPARE(m_events.last(), QStringLiteral("says R en"));
    QCOMPARE(m_handler.calls.last(), QStringLiteral("cancel"));
    QVERIFY(m_dialog->openQuestion().isEmpty());
}

void SimulatedDialogModuleTest::aQuestionWithoutChoicesTakesAnything()
{
    setUpTalk();
    QSignalSpy answered(m_dialog.data(), &SimulatedDialogModule::questionAnswered);
    m_dialog->askQuestion(QStringLiteral("Your name?"), {});
    hear("Anna");
    QCOMPARE(answered.count(), 1);
    QCOMPARE(m_handler.calls.last(), QStringLiteral("cancel"));
    QVERIFY(m_dialog->openQuestion().isEmpty());
    QCOMPARE(m_events, QStringList{QStringLiteral("hears Anna")});
    m_dialog->askQuestion(QStringLiteral("Your name?"), {});
    answer("yes");
    QCOMPARE(m_events.last(), QStringLiteral("says good en"));
}

void SimulatedDialogModuleTest::asksAgainAfterAnAnswerThatIsNoChoice()
{
    setUpTalk();
    hear("where");
    answer("up");
    QCOMPARE(m_events.last(), QStringLiteral("says sorry en"));
    QCOMPARE(m_handler.calls.last(), QStringLiteral("again WAY EN? left|right"));
    answer("RIGHT");
    QCOMPARE(m_events.last(), QStringLiteral("says R en"));
}

void SimulatedDialogModuleTest::answersWhatIsSaidInsteadOfAChoice()
{
    setUpTalk();
    hear("where");
    hear("yes");
    QCOMPARE(m_events.last(), QStringLiteral("says expected en"));
    QCOMPARE(m_dialog->openQuestion(), QStringLiteral("WAY EN"));
}

void SimulatedDialogModuleTest::passesAnAnswerWithoutQuestionOn()
{
    setUpTalk();
    answer("yes");
    QCOMPARE(m_events.last(), QStringLiteral("says good en"));
    m_events.clear();
    // For example a choice that was touched twice.
    answer("left");
    QVERIFY(m_events.isEmpty());
}

void SimulatedDialogModuleTest::takesTheAnswerToAnotherQuestionAsSaid()
{
    setUpTalk();
    m_dialog->askQuestion(QStringLiteral("Really?"), {QStringLiteral("yes"), QStringLiteral("no")});
    answer("maybe");
    QCOMPARE(m_events.last(), QStringLiteral("says sorry en"));
    QCOMPARE(m_dialog->openQuestion(), QStringLiteral("Really?"));
    answer("yes");
    QCOMPARE(m_events.last(), QStringLiteral("says good en"));
    QVERIFY(m_dialog->openQuestion().isEmpty());
}

void SimulatedDialogModuleTest::aQuestionFollowsTheLanguage()
{
    setUpTalk();
    hear("where");
    m_language->setCode(QStringLiteral("de"));
    QCOMPARE(m_handler.calls.last(),
             QStringLiteral("again WAY DE? left auf Deutsch|right auf Deutsch"));
    answer("left auf Deutsch");
    QCOMPARE(m_events.last(), QStringLiteral("says L de"));
}

void SimulatedDialogModuleTest::aQuestionOfAnotherScenarioIsWithdrawn()
{
    setUpTalk();
    hear("where");
    m_replicas->setScenario(DialogScenario());
    QCOMPARE(m_handler.calls.last(), QStringLiteral("cancel"));
    QVERIFY(m_dialog->openQuestion().isEmpty());
}

void SimulatedDialogModuleTest::fillsInTheMacrosOfAQuestion()
{
    TestScenario scenario;
    scenario.macros[QStringLiteral("floor")] = {{QStringLiteral("en"), QStringLiteral("first")}};
    DialogScenario::Line &line = scenario.addLine(QStringLiteral("hello"), Replica::Greeting);
    line.texts[QStringLiteral("en")] = {QStringLiteral("To the %floor%?"),
                                        QStringLiteral("%floor%"), QString()};
    TestScenario::addChoice(&line, QStringLiteral("The %floor%"), QStringLiteral("hello"));
    m_replicas->setScenario(scenario);
    m_dialog->setQuestionHandler(&m_handler);
    m_handler.calls.clear();
    m_dialog->meet(UserData());
    QCOMPARE(m_events.last(), QStringLiteral("says To the first?"));
    QCOMPARE(m_handler.calls, QStringList{QStringLiteral("first? The first")});
}

void SimulatedDialogModuleTest::asksTheScreensReplicaOnlyWhenTheTurnGoesOn()
{
    setUpTalk();
    const auto way = QSharedPointer<Replica>::create(m_replicas->named(QStringLiteral("way")));
    m_dialog->processReplica(way, true);
    QVERIFY(m_handler.calls.isEmpty());
    m_dialog->processReplica(way, false);
    QCOMPARE(m_handler.calls.size(), 1);
    // The screen says itself which answers it expects.
    QCOMPARE(m_dialog->anchor(), ID());
}

void SimulatedDialogModuleTest::theScreensAnswerWithdrawsTheQuestion()
{
    setUpTalk();
    hear("where");
    const auto answer = QSharedPointer<Answer>::create();
    answer->setReplica(m_replicas->named(QStringLiteral("good")));
    m_events.clear();
    m_dialog->setAnswerResult(answer, true);
    QCOMPARE(m_handler.calls.last(), QStringLiteral("cancel"));
    // The screen need not be told what it has chosen.
    QCOMPARE(m_events, QStringList{QStringLiteral("says good en")});
    QCOMPARE(m_dialog->anchor(), ID());
}

void SimulatedDialogModuleTest::looksUpTheScreensAnswer_data()
{
    QTest::addColumn<QString>("by");
    QTest::addColumn<QString>("says");
    for (const char *by : {"replica", "pattern", "question"})
        QTest::newRow(by) << by
                          << (by[0] == 'r' ? QStringLiteral("L en") : QStringLiteral("way en"));
    QTest::newRow("nothing") << QString() << QString();
}

void SimulatedDialogModuleTest::looksUpTheScreensAnswer()
{
    QFETCH(QString, by);
    QFETCH(QString, says);
    setUpTalk();
    const auto answer = QSharedPointer<Answer>::create();
    if (by == QLatin1String("replica")) {
        Replica replica;
        replica.setId(m_left);
        answer->setReplica(replica);
    } else if (by == QLatin1String("pattern")) {
        answer->setIdPattern(m_where);
    } else if (by == QLatin1String("question")) {
        answer->setQuestion(QStringLiteral("Where now?"));
    }
    m_dialog->setAnswerResult(answer, true);
    QCOMPARE(m_speech->text(), says);
    // A question goes on as one.
    QCOMPARE(m_handler.calls.size(), says.startsWith(QLatin1String("way")) ? 1 : 0);
}

void SimulatedDialogModuleTest::saysSomethingUnasked()
{
    m_dialog->sayExtra();
    QVERIFY(m_events.isEmpty());
    TestScenario scenario;
    scenario.addLine(QStringLiteral("news"), Replica::Extra);
    m_replicas->setScenario(scenario);
    m_dialog->setAnchor(m_set);
    m_dialog->sayExtra();
    QCOMPARE(m_events,
             (QStringList{QStringLiteral("adds news en"), QStringLiteral("says news en")}));
    QCOMPARE(m_dialog->anchor(), m_set);
}

void SimulatedDialogModuleTest::saysSomethingUnaskedWhenAPersonIsSilent()
{
    TestScenario scenario;
    scenario.addLine(QStringLiteral("news"), Replica::Extra);
    m_replicas->setScenario(scenario);
    m_pace.setSpeed(1000);
    m_dialog->setExtraInterval(5000);
    m_dialog->meet(UserData());
    QTRY_VERIFY(m_events.count(QStringLiteral("adds news en")) >= 2);
}

void SimulatedDialogModuleTest::staysSilentWithoutAPerson()
{
    TestScenario scenario;
    scenario.addLine(QStringLiteral("news"), Replica::Extra);
    scenario.addPattern(QStringLiteral("*"), {QStringLiteral("news")});
    m_replicas->setScenario(scenario);
    m_pace.setSpeed(10000);
    m_dialog->setExtraInterval(10);
    m_dialog->meet(UserData());
    m_dialog->part();
    hear("x");
    QSignalSpy finished(m_speech.data(), &SimulatedSpeech::finished);
    QTRY_COMPARE(finished.count(), 1);
    turnEventLoop();
    turnEventLoop();
    QVERIFY(!m_events.contains(QStringLiteral("adds news en")));
}

void SimulatedDialogModuleTest::staysSilentWhileAQuestionIsOpen()
{
    TestScenario scenario;
    scenario.addLine(QStringLiteral("news"), Replica::Extra);
    m_replicas->setScenario(scenario);
    m_dialog->setQuestionHandler(&m_handler);
    m_pace.setSpeed(10000);
    m_dialog->setExtraInterval(10);
    m_dialog->askQuestion(QStringLiteral("Where"), {});
    m_dialog->meet(UserData());
    for (int i = 0; i < 5; ++i)
        turnEventLoop();
    QVERIFY(m_events.isEmpty());
    m_dialog->cancelQuestion();
    QTRY_VERIFY(m_events.contains(QStringLiteral("adds news en")));
}

void SimulatedDialogModuleTest::forgetsThePersonWhoLeaves()
{
    setUpTalk();
    UserData anna;
    anna.setName(QStringLiteral("Anna"));
    m_dialog->meet(anna);
    hear("where");
    QCOMPARE(m_replicas->filled(QStringLiteral("%name%")), QStringLiteral("Anna"));
    m_dialog->part();
    QCOMPARE(m_handler.calls.last(), QStringLiteral("cancel"));
    QCOMPARE(m_dialog->anchor(), ID());
    QVERIFY(m_dialog->openQuestion().isEmpty());
    QCOMPARE(m_replicas->filled(QStringLiteral("%name%")), QStringLiteral("%name%"));
}

QTEST_GUILESS_MAIN(SimulatedDialogModuleTest)

#include "tst_simulateddialogmodule.moc"
