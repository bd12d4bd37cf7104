#pragma once

#include "panorel/Export.h"

#include "host/QuestionHandler.h"

namespace panorel {

class Message;
class MessageQueueBrocker;

/// Shows the dialog engine's questions on the page and hands the page's answers to the engine.
///
/// The in-work flag only keeps cancel() from reaching a page that shows no question: an answer does
/// not clear it, and an answer without a question is passed on all the same.
class PANOREL_EXPORT PanorelQuestionHandler : public QuestionHandler
{
    Q_OBJECT

public:
    /// Subscribes itself to the page's answers. @p brocker is not owned; when it goes first,
    /// detach() has to be called.
    explicit PanorelQuestionHandler(MessageQueueBrocker *brocker, QObject *parent = nullptr);
    ~PanorelQuestionHandler() override;

    /// Publishes "dialog.question.new". The page gets the same message whatever @p repeat is.
    void setQuestion(QString &question, QStringList &answers, bool repeat) override;

    /// Publishes "dialog.question.cancel", if a question was shown since the last cancel.
    void cancel() override;

    bool inWork() override;

    /// Called when the bus goes: from then on questions reach nobody.
    void detach();

    /// Emits hasAnswer with @p text and a fresh id.
    void answer(const QString &text);

private:
    void publish(const Message &message);

    MessageQueueBrocker *m_brocker;
    bool m_inWork = false;
};

} // namespace panorel
