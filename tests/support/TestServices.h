#pragma once

#include "tests/support/HostCall.h"

#include "host/Answer.h"
#include "host/IInteractionService.h"
#include "host/IMacrosReplacer.h"
#include "host/IUsersDatabase.h"
#include "host/KarvelDialogModule.h"
#include "host/QuestionHandler.h"
#include "host/Replica.h"
#include "host/UserData.h"

#include <QMap>
#include <QPointer>
#include <QStringList>

#include <functional>

// Doubles of the host's services. Where one has a list "hostCalls", a test may let it append what
// it is told to the plugin's calls, so that the order across both shows.

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
        if (hostCalls)
            hostCalls->append({QStringLiteral("setMacros"), {name, value}});
    }
    void removeMacros(const QString &name) override
    {
        calls.append(QStringLiteral("remove ") + name);
        if (hostCalls)
            hostCalls->append({QStringLiteral("removeMacros"), {name}});
    }

    QStringList calls;
    QVector<HostCall> *hostCalls = nullptr; ///< not owned
};

/// A dialog module that keeps what it was told.
class TestDialogModule : public KarvelDialogModule
{
    Q_OBJECT

public:
    void processReplica(const QSharedPointer<Replica> &replica, const bool &terminate) override
    {
        replicas.append(replica);
        if (hostCalls)
            hostCalls->append({QStringLiteral("processReplica"), {replica->text(), terminate}});
    }
    void setAnswerResult(const QSharedPointer<Answer> &answer, bool result) override
    {
        answers.append(answer);
        if (hostCalls)
            hostCalls->append({QStringLiteral("setAnswerResult"), {answer->question(), result}});
    }
    void setQuestionHandler(QuestionHandler *handler) override
    {
        // A former handler must still live at this moment.
        formerAlive = handler != questionHandler && !questionHandler.isNull();
        questionHandler = handler;
    }

    QVector<QSharedPointer<Replica>> replicas;
    QVector<QSharedPointer<Answer>> answers;
    QPointer<QuestionHandler> questionHandler;
    bool formerAlive = false;
    QVector<HostCall> *hostCalls = nullptr; ///< not owned
};

/// A user database that keeps what it was told, and knows whom a test puts in.
class TestUsersDatabase : public IUsersDatabase
{
    Q_OBJECT

public:
    /// @p hostCalls, not owned, takes the calls.
    explicit TestUsersDatabase(QVector<HostCall> *hostCalls)
        : m_hostCalls(hostCalls)
    { }

    bool user(const long long &id, UserData &user) override
    {
        m_hostCalls->append({QStringLiteral("user"), {id}});
        const auto known = people.constFind(id);
        const bool found = known != people.constEnd();
        if (found)
            user = *known;
        if (afterEachCall)
            afterEachCall();
        return found;
    }
    bool addUser(const UserData &user) override
    {
        m_hostCalls->append({QStringLiteral("addUser"), {user.name()}});
        added.append(user);
        if (afterEachCall)
            afterEachCall();
        return result;
    }
    bool deleteUser(const long long &id, const FaceInfo::Type &type) override
    {
        m_hostCalls->append({QStringLiteral("deleteUser"), {id, static_cast<int>(type)}});
        if (afterEachCall)
            afterEachCall();
        return result;
    }

    QMap<long long, UserData> people; ///< what a lookup finds
    QVector<UserData> added;
    bool result = true; ///< given for every addition and deletion
    std::function<void()> afterEachCall;

private:
    QVector<HostCall> *m_hostCalls;
};
