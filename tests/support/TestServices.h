#pragma once

#include "host/IInteractionService.h"
#include "host/IMacrosReplacer.h"
#include "host/KarvelDialogModule.h"
#include "host/QuestionHandler.h"

#include <QPointer>
#include <QStringList>

/// An interaction service that a test steers.
class TestInteractionService : public IInteractionService
{
    Q_OBJECT

public:
    void start() override { calls.append(QStringLiteral("start")); }
    void stop() override { calls.append(QStringLiteral("stop")); }

    QStringList calls;
};

/// A macro replacer that keeps what it was told.
class TestMacrosReplacer : public IMacrosReplacer
{
    Q_OBJECT

public:
    void setMacros(const QString &name, const QString &value) override
    {
        calls.append(QStringLiteral("set %1=%2").arg(name, value));
    }
    void removeMacros(const QString &name) override
    {
        calls.append(QStringLiteral("remove ") + name);
    }

    QStringList calls;
};

/// A dialog module that keeps what it was told.
class TestDialogModule : public KarvelDialogModule
{
    Q_OBJECT

public:
    void processReplica(const QSharedPointer<Replica> &, const bool &) override { }
    void setAnswerResult(const QSharedPointer<Answer> &, bool) override { }
    void setQuestionHandler(QuestionHandler *handler) override
    {
        // A former handler must still live at this moment.
        formerAlive = handler != questionHandler && !questionHandler.isNull();
        questionHandler = handler;
    }

    QPointer<QuestionHandler> questionHandler;
    bool formerAlive = false;
};
