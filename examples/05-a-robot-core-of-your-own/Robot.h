#pragma once

#include "host/KarvelDialogModule.h"
#include "host/PluginInterface.h"

/// A robot with a card dispenser and nothing else: what it does not have is a null pointer, and the
/// page is told so.
class Robot : public PluginInterface
{
public:
    Robot();

    QVariant appParameter(const QString &key, const QVariant &defaultValue) const override;
    QVariant sysParameter(const QString &key, const QVariant &defaultValue) const override;
    QMap<QString, QVariant> appParameterGroup(const QString &group) const override;
    QMap<QString, QVariant> sysParameterGroup(const QString &group) const override;
    QMap<QString, QVariant> emailParameters() const override;

    QSharedPointer<IDevice> device(const Device &device) const override;
    QSharedPointer<IPrinter> printer(const Device &device) const override;
    QSharedPointer<IKeyboard> keyboard() const override;
    QSharedPointer<IUsersDatabase> databaseUsers() const override;
    QSharedPointer<IInteractionService> interactionService() const override;
    QSharedPointer<IMacrosReplacer> macrosReplacer() const override;

private:
    const QSharedPointer<IDevice> m_dispenser;
};

/// A dialog engine that has nothing to say.
class Dialog : public KarvelDialogModule
{
public:
    void processReplica(const QSharedPointer<Replica> &replica, const bool &terminate) override;
    void setAnswerResult(const QSharedPointer<Answer> &answer, bool result) override;
    void setQuestionHandler(QuestionHandler *handler) override;
};
