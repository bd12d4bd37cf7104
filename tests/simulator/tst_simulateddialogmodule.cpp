#include "simulator/core/SimulatedDialogModule.h"

#include "host/Answer.h"
#include "host/QuestionHandler.h"
#include "simulator/core/SimulatedMacrosReplacer.h"
#include "simulator/core/SimulatedSpeech.h"
#include "tests/support/TestCase.h"

#include <QUuid>

using simulator::Pace;
using simulator::SimulatedDialogModule;
using simulator::SimulatedMacrosReplacer;
using simulator::SimulatedSpeech;

namespace {

class Handler : public QuestionHandler
{
public:
    void setQuestion(QString &question, QStringList &answers, bool) override
    {
        calls.append(question + QStringLiteral("? ") + answers.join(QLatin1Char('|')));
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

protected:
    void setUp() override
    {
        m_speech.reset(
            new SimulatedSpeech(QSharedPointer<SimulatedMacrosReplacer>::create(), Pace()));
        m_dialog.reset(new SimulatedDialogModule(m_speech.data()));
    }
    void tearDown() override
    {
        m_dialog.reset();
        m_speech.reset();
    }

private:
    QScopedPointer<SimulatedSpeech> m_speech;
    QScopedPointer<SimulatedDialogModule> m_dialog;
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

QTEST_GUILESS_MAIN(SimulatedDialogModuleTest)

#include "tst_simulateddialogmodule.moc"
