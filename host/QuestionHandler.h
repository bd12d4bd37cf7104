#pragma once

#include "host/Export.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QUuid>

/// Puts the dialog engine's questions to the user and brings the answers back.
class PANOREL_HOST_EXPORT QuestionHandler : public QObject
{
    Q_OBJECT

public:
    explicit QuestionHandler(QObject *parent = nullptr);
    ~QuestionHandler() override;

    /// Shows @p question with the possible @p answers.
    virtual void setQuestion(QString &question, QStringList &answers, bool repeat) = 0;
    /// Withdraws the open question, if there is one.
    virtual void cancel() = 0;
    /// Whether a question was shown since the last cancel.
    virtual bool inWork() = 0;

Q_SIGNALS:
    /// The user's answer. @p id is a fresh identifier of this answer, not of the question.
    void hasAnswer(QUuid id, QString text);
};
