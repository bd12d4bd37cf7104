#pragma once

#include "host/Export.h"

#include <QObject>
#include <QString>
#include <QStringList>

/// The robot core's mail client for one account. The host library holds only its meta-object; the
/// robot core defines the constructor, the destructor and every operation.
class PANOREL_HOST_EXPORT MailSender : public QObject
{
    Q_OBJECT

public:
    /// How the connection to the mail server is secured.
    enum Security : int {
        None = 0,
        StartTls = 1,
        Tls = 2,
    };
    Q_ENUM(Security)

    MailSender(const QString &host, const int &port, const MailSender::Security &security,
               const QString &login, const QString &password, QObject *parent = nullptr);
    ~MailSender() override;

    /// Sends one mail and returns when it has ended, well or not. May be called on any thread; the
    /// signal comes on that thread, once, before the call returns. @p files are the paths of
    /// attachments; empty paths are passed over.
    void send(const QString &from, const QString &to, const QString &subject, const QString &body,
              const QStringList &files);

Q_SIGNALS:
    /// The server took the mail.
    void signalFinished();
    /// The mail was not sent: the server's code, or the mail client's own, and what it says.
    void signalError(const int &code, const QString &text);

private:
    struct Private;
    Private *d;
};
