#include "panorel/PanorelQuestionHandler.h"

#include "panorel/Constants.h"
#include "panorel/MessageQueueBrocker.h"

#include <QPointer>

namespace panorel {

PanorelQuestionHandler::PanorelQuestionHandler(MessageQueueBrocker *brocker, QObject *parent)
    : QuestionHandler(parent)
    , m_brocker(brocker)
{
    // The broker owns the callable, and either of the two may go first.
    const QPointer<PanorelQuestionHandler> self(this);
    m_brocker->subscribe(constants::QUESTION_ANSWER, [self](const Message &message) {
        if (self)
            self->answer(message.attributes().value(QStringLiteral("text")).toString());
    });
}

PanorelQuestionHandler::~PanorelQuestionHandler() = default;

void PanorelQuestionHandler::setQuestion(QString &question, QStringList &answers, bool repeat)
{
    Q_UNUSED(repeat)
    m_inWork = true;
    publish(Message(constants::QUESTION_NEW,
                    {{QStringLiteral("text"), question}, {QStringLiteral("answers"), answers}}));
}

void PanorelQuestionHandler::cancel()
{
    if (!m_inWork)
        return;
    m_inWork = false;
    publish(Message(constants::QUESTION_CANCEL));
}

bool PanorelQuestionHandler::inWork() { return m_inWork; }

void PanorelQuestionHandler::detach() { m_brocker = nullptr; }

void PanorelQuestionHandler::publish(const Message &message)
{
    if (m_brocker)
        m_brocker->publish(message);
}

void PanorelQuestionHandler::answer(const QString &text)
{
    Q_EMIT hasAnswer(QUuid::createUuid(), text);
}

} // namespace panorel
