#pragma once

#include "simulator/core/Pace.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <mutex>

namespace simulator {

/// One mail as it was handed to the mail server.
struct Mail
{
    QString from;
    QString to;
    QString subject;
    QString body;
    /// Paths of the attachments.
    QStringList files;
    /// Counts the mails that the server took, from 1. The server sets it.
    int number = 0;
};

/// The mail server behind every MailSender of this process. One object, made on its first use and
/// kept until the program ends. May be used on any thread.
class Outbox : public QObject
{
    Q_OBJECT

public:
    static Outbox &instance();

    /// Takes mails again; it does so from the beginning.
    void accept();
    /// Refuses every mail with this error.
    void refuse(int code, const QString &text);
    /// Whether mails are refused; then @p code and @p text are the error.
    bool isRefusing(int &code, QString &text) const;

    /// Takes @p mail. Returns whether it did; otherwise @p code and @p text say why not. Blocks
    /// for as long as the transfer takes.
    bool take(const Mail &mail, int &code, QString &text);

    /// The last 100 mails taken, the oldest first.
    QList<Mail> mails() const;
    void clear();

    void setPace(const Pace &pace);
    /// How long a transfer takes, in milliseconds of the robot's time.
    void setTransferTime(int milliseconds);

Q_SIGNALS:
    // Each comes on the thread that caused it.
    void taken(const QString &to, const QString &subject);
    void cleared();
    /// Mails are taken again, or refused, or refused with another error.
    void answerChanged();

private:
    Outbox() = default;

    // The thread sanitizer does not see through Qt's.
    mutable std::mutex m_mutex; // guards what follows
    QList<Mail> m_mails;
    Pace m_pace;
    QString m_refusalText;
    int m_refusalCode = 0;
    bool m_refusing = false;
    int m_count = 0; // mails taken
    int m_transferTime = 800;
};

} // namespace simulator
