#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <condition_variable>
#include <mutex>

class QThread;

/// The mail server in a program that is linked with TestMailServer.cpp: it defines MailSender instead
/// of the simulator. Each send waits at the gate while that is closed. Any thread.
class TestMailServer
{
public:
    /// What a MailSender was made with.
    struct Account
    {
        QString host;
        int port;
        int security;
        QString login;
        QString password;
        bool hasParent;
    };
    /// What a send was called with.
    struct Sending
    {
        int account; ///< index of the sender's account
        QThread *thread;
        QString from;
        QString to;
        QString subject;
        QString body;
        QStringList files;
    };
    /// What a send signals, and when it returns.
    struct Outcome
    {
        int code = 0; ///< 0 is success
        QString text;
        bool waitsBeforeReturn = false; ///< at the gate, after the signal
    };

    static TestMailServer &instance();

    void reset();
    QList<Account> accounts() const;
    QList<Sending> sendings() const;
    int livingSenders() const;
    /// Threads on which senders were deleted.
    QList<QThread *> deletions() const;
    /// Sends that have returned.
    int returned() const;

    /// Closes the gate for all sends, or opens it.
    void setOpen(bool open);
    bool isOpen() const;
    /// Lets one waiting send to this recipient pass.
    void letPass(const QString &to);
    /// What becomes of sends to @p to.
    void setOutcome(const QString &to, const Outcome &outcome);

    // For the double of MailSender.
    int addSender(const Account &account);
    void removeSender();
    Outcome enter(const Sending &sending);
    void waitAtGate(const QString &to);
    void leave();

private:
    // The standard library's: the thread sanitizer does not see through Qt's.
    mutable std::mutex m_mutex; // guards what follows
    std::condition_variable m_changed;
    QList<Account> m_accounts;
    QList<Sending> m_sendings;
    QList<QThread *> m_deletions;
    QStringList m_passing;
    QList<QPair<QString, Outcome>> m_outcomes;
    int m_living = 0;
    int m_returned = 0;
    bool m_open = true;
};
