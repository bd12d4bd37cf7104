#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

#include <QObject>
#include <QSharedPointer>
#include <QString>
#include <QVariantMap>

class MailSender;
class PluginInterface;

namespace panorel {

class MessageQueueBrocker;

/// Sends mails of the page from the host's account, on threads of the global pool, and tells the
/// page how each ended.
class PANOREL_EXPORT MailSenderHandler : public QObject, public MessageHandler
{
    Q_OBJECT

public:
    /// Neither is owned.
    MailSenderHandler(PluginInterface *plugin, MessageQueueBrocker *brocker);

    /// May be called while mails are on their way: they go on, and the page hears no more of them.
    ~MailSenderHandler() override;

    /// "mail.sender.request".
    QString topic() const;

    /// "email": the recipient, without which nothing is sent or answered; "subject", "body",
    /// "filename": path of a file to attach. The account comes from the host's mail settings; a
    /// sender's address that they lack stays the one of an earlier request.
    ///
    /// Each end is answered by "mail.sender.response" with "status": "success", or "error" with
    /// "code", the number as decimal text, and "text". Answers come in the order of the ends.
    void handle(Message message) override;

private:
    void readAccount();
    void createSender();
    void publishError(int code, const QString &text);
    void reply(const QVariantMap &attributes);

    PluginInterface *m_plugin;
    MessageQueueBrocker *m_brocker;
    QString m_host;
    int m_port = 0;
    int m_security = 0;
    QString m_login;
    QString m_password;
    QString m_sender;
    QSharedPointer<MailSender> m_mailSender; // null once it sends
};

} // namespace panorel
