#pragma once

#include "host/Export.h"

#include <QObject>
#include <QSharedPointer>

class Answer;
class QuestionHandler;
class Replica;

/// The robot core's dialog engine, as far as the screen steers it.
class PANOREL_HOST_EXPORT KarvelDialogModule : public QObject
{
    Q_OBJECT

public:
    explicit KarvelDialogModule(QObject *parent = nullptr);
    ~KarvelDialogModule() override;

    /// Plays @p replica; @p terminate says whether the dialog turn ends with it.
    virtual void processReplica(const QSharedPointer<Replica> &replica, const bool &terminate) = 0;
    /// Takes @p answer as the user's and continues the dialog with it.
    virtual void setAnswerResult(const QSharedPointer<Answer> &answer, bool result) = 0;
    /// Uses @p handler for every later question. The module does not own it, and has to forget it
    /// when it is destroyed: the widget that made it may go first.
    virtual void setQuestionHandler(QuestionHandler *handler) = 0;
};
