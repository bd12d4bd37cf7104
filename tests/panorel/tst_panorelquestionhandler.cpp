#include "panorel/PanorelQuestionHandler.h"

#include "panorel/PanorelQueueBrocker.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/TestCase.h"

#include <QSignalSpy>

using panorel::Message;
using panorel::PanorelQuestionHandler;
using panorel::PanorelQueueBrocker;

namespace {

const QString newTopic = QStringLiteral("dialog.question.new");
const QString cancelTopic = QStringLiteral("dialog.question.cancel");
const QString answerTopic = QStringLiteral("dialog.question.answer");

Message answerMessage(const QString &text)
{
    return Message(answerTopic, {{QStringLiteral("text"), text}});
}

} // namespace

class PanorelQuestionHandlerTest : public TestCase
{
    Q_OBJECT

private:
    void setUp() override
    {
        m_brocker = std::make_unique<PanorelQueueBrocker>();
        m_published.watch(m_brocker.get(), {newTopic, cancelTopic});
        m_handler = std::make_unique<PanorelQuestionHandler>(m_brocker.get());
    }
    void tearDown() override
    {
        QVERIFY(m_published.isEmpty());
        m_handler.reset();
        m_brocker.reset();
    }

    std::unique_ptr<PanorelQueueBrocker> m_brocker;
    std::unique_ptr<PanorelQuestionHandler> m_handler;
    MessageRecorder m_published;
    QString m_question = QStringLiteral("Tea or coffee?");
    QStringList m_answers{QStringLiteral("Tea"), QStringLiteral("Coffee"), QStringLiteral("Tea")};

private Q_SLOTS:
    void subscribesACallable();
    void publishesTheQuestion_data();
    void publishesTheQuestion();
    void isInWorkBeforeItPublishes();
    void cancelsOnlyAShownQuestion();
    void handsAnswersToTheEngine();
    void drawsAFreshIdForEachAnswer();
    void takesAMissingTextAsEmpty();
    void staysInWorkAfterAnAnswer();
    void passesOnAnAnswerWithoutAQuestion();
    void survivesTheBroker();
    void asksNobodyOnceDetached();
    void brokerSurvivesTheHandler();
    void hasAParent();
};

void PanorelQuestionHandlerTest::subscribesACallable()
{
    log().take();
    const PanorelQuestionHandler another(m_brocker.get());
    QCOMPARE(
        log().takeTexts(QStringLiteral("panorel")),
        QStringList({QStringLiteral("Subsctribe functional handler \"dialog.question.answer\""),
                     QStringLiteral("Subsctribe default handler \"dialog.question.answer\"")}));
}

void PanorelQuestionHandlerTest::publishesTheQuestion_data()
{
    QTest::addColumn<bool>("repeat");
    QTest::newRow("first time") << false;
    QTest::newRow("again") << true;
}

void PanorelQuestionHandlerTest::publishesTheQuestion()
{
    QFETCH(bool, repeat);
    m_handler->setQuestion(m_question, m_answers, repeat);
    QCOMPARE(m_published.count(), 1);
    const Message message = m_published.take();
    QCOMPARE(message.type(), newTopic);
    QCOMPARE(message.attributes(),
             QVariantMap(
                 {{QStringLiteral("text"), m_question}, {QStringLiteral("answers"), m_answers}}));
    QVERIFY(m_handler->inWork());
}

void PanorelQuestionHandlerTest::isInWorkBeforeItPublishes()
{
    bool inWork = false;
    m_brocker->subscribe(newTopic,
                         [this, &inWork](const Message &) { inWork = m_handler->inWork(); });
    m_handler->setQuestion(m_question, m_answers, false);
    QVERIFY(inWork);
    m_published.clear();
}

void PanorelQuestionHandlerTest::cancelsOnlyAShownQuestion()
{
    QVERIFY(!m_handler->inWork());
    m_handler->cancel();
    QVERIFY(m_published.isEmpty());

    m_handler->setQuestion(m_question, m_answers, false);
    m_published.clear();
    m_handler->cancel();
    QCOMPARE(m_published.count(), 1);
    const Message message = m_published.take();
    QCOMPARE(message.type(), cancelTopic);
    QCOMPARE(message.attributes(), QVariantMap());
    QVERIFY(!m_handler->inWork());

    m_handler->cancel();
    QVERIFY(m_published.isEmpty());
}

void PanorelQuestionHandlerTest::handsAnswersToTheEngine()
{
    QSignalSpy spy(m_handler.get(), &QuestionHandler::hasAnswer);
    m_brocker->publish(answerMessage(QStringLiteral("Coffee")));
    QCOMPARE(spy.count(), 1);
    QVERIFY(!spy.first().at(0).toUuid().isNull());
    QCOMPARE(spy.first().at(1).toString(), QStringLiteral("Coffee"));
}

void PanorelQuestionHandlerTest::drawsAFreshIdForEachAnswer()
{
    QSignalSpy spy(m_handler.get(), &QuestionHandler::hasAnswer);
    m_brocker->publish(answerMessage(QStringLiteral("Tea")));
    m_brocker->publish(answerMessage(QStringLiteral("Tea")));
    QCOMPARE(spy.count(), 2);
    QVERIFY(spy.at(0).at(0).toUuid() != spy.at(1).at(0).toUuid());
}

void PanorelQuestionHandlerTest::takesAMissingTextAsEmpty()
{
    QSignalSpy spy(m_handler.get(), &QuestionHandler::hasAnswer);
    m_brocker->publish(Message(answerTopic));
    m_brocker->publish(Message(answerTopic, {{QStringLiteral("text"), QVariantMap()}}));
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(0).at(1).toString(), QString());
    QCOMPARE(spy.at(1).at(1).toString(), QString());
}

void PanorelQuestionHandlerTest::staysInWorkAfterAnAnswer()
{
    m_handler->setQuestion(m_question, m_answers, false);
    m_published.clear();
    m_brocker->publish(answerMessage(QStringLiteral("Tea")));
    QVERIFY(m_handler->inWork());
    m_handler->cancel();
    QCOMPARE(m_published.take().type(), cancelTopic);
}

void PanorelQuestionHandlerTest::passesOnAnAnswerWithoutAQuestion()
{
    QSignalSpy spy(m_handler.get(), &QuestionHandler::hasAnswer);
    QVERIFY(!m_handler->inWork());
    m_brocker->publish(answerMessage(QStringLiteral("Hello")));
    QCOMPARE(spy.count(), 1);
    QVERIFY(!m_handler->inWork());
}

void PanorelQuestionHandlerTest::survivesTheBroker()
{
    m_brocker.reset();
    m_handler.reset(); // must not touch the broker
}

void PanorelQuestionHandlerTest::asksNobodyOnceDetached()
{
    m_handler->detach();
    m_handler->setQuestion(m_question, m_answers, false);
    m_handler->cancel();
    QVERIFY(m_published.isEmpty());
    m_brocker.reset();
    m_handler->setQuestion(m_question, m_answers, false);
}

void PanorelQuestionHandlerTest::brokerSurvivesTheHandler()
{
    m_handler.reset();
    m_brocker->publish(answerMessage(QStringLiteral("Tea")));
}

void PanorelQuestionHandlerTest::hasAParent()
{
    QObject parent;
    const auto *handler = new PanorelQuestionHandler(m_brocker.get(), &parent);
    QCOMPARE(handler->parent(), &parent);
}

QTEST_GUILESS_MAIN(PanorelQuestionHandlerTest)
#include "tst_panorelquestionhandler.moc"
