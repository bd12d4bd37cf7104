#include "host/MailSender.h"

#include "simulator/core/Outbox.h"

#include <QFileInfo>

using simulator::Mail;
using simulator::Outbox;

namespace {

const int NoServer = 1;
const int NoAddress = 2;
const int NoAttachment = 3;

} // namespace

/// The account. Written once, so that any thread may read it.
struct MailSender::Private
{
    QString host;
    int port = 0;
    MailSender::Security security = MailSender::None;
    QString login;
    QString password;
};

MailSender::MailSender(const QString &host, const int &port, const MailSender::Security &security,
                       const QString &login, const QString &password, QObject *parent)
    : QObject(parent)
    , d(new Private{host, port, security, login, password})
{ }

MailSender::~MailSender() { delete d; }

void MailSender::send(const QString &from, const QString &to, const QString &subject,
                      const QString &body, const QStringList &files)
{
    if (d->host.isEmpty()) {
        Q_EMIT signalError(NoServer, QStringLiteral("The mail account has no server"));
        return;
    }
    if (from.isEmpty() || to.isEmpty()) {
        Q_EMIT signalError(NoAddress, QStringLiteral("Sender or recipient is missing"));
        return;
    }
    QStringList attachments;
    for (const QString &file : files) {
        if (file.isEmpty())
            continue;
        if (!QFileInfo(file).isReadable()) {
            Q_EMIT signalError(NoAttachment,
                               QStringLiteral("The attachment %1 cannot be read").arg(file));
            return;
        }
        attachments.append(file);
    }

    int code = 0;
    QString text;
    if (Outbox::instance().take(Mail{from, to, subject, body, attachments}, code, text))
        Q_EMIT signalFinished();
    else
        Q_EMIT signalError(code, text);
}
