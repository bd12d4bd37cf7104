#include "panorel/handlers/MailSenderHandler.h"

#include "panorel/Constants.h"
#include "panorel/Logging.h"
#include "panorel/MessageQueueBrocker.h"

#include "host/MailSender.h"
#include "host/PluginInterface.h"

#include <QtConcurrent>

#include <utility>

namespace panorel {

MailSenderHandler::MailSenderHandler(PluginInterface *plugin, MessageQueueBrocker *brocker)
    : m_plugin(plugin)
    , m_brocker(brocker)
{ }

MailSenderHandler::~MailSenderHandler() = default;

QString MailSenderHandler::topic() const { return constants::MAIL_SENDER_REQUEST; }

void MailSenderHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "MailSenderHandler" << message.toJson();

    readAccount();
    createSender();

    const QVariantMap attributes = message.attributes();
    const auto email = attributes.constFind(QStringLiteral("email"));
    if (email == attributes.constEnd())
        return; // nobody to send it to: dropped

    // The thread that sends holds the sender alone: it lives until send has returned, however long
    // that takes and whatever becomes of this handler. The copies belong to that thread.
    QtConcurrent::run(
        [sender = std::exchange(m_mailSender, {}), from = m_sender, to = email->toString(),
         subject = attributes.value(QStringLiteral("subject")).toString(),
         body = attributes.value(QStringLiteral("body")).toString(),
         files = QStringList(attributes.value(QStringLiteral("filename")).toString())] {
            sender->send(from, to, subject, body, files);
        });
}

void MailSenderHandler::readAccount()
{
    // The sender's address is not forgotten, on purpose: settings without one mean the one before.
    m_host.clear();
    m_port = 0;
    m_security = 0;
    m_login.clear();
    m_password.clear();

    const QVariantMap account = m_plugin ? m_plugin->emailParameters() : QVariantMap();
    const auto sender = account.constFind(QStringLiteral("sender"));
    if (sender != account.constEnd())
        m_sender = sender->toString();
    m_login = account.value(QStringLiteral("login")).toString();
    m_password = account.value(QStringLiteral("password")).toString();
    m_host = account.value(QStringLiteral("host")).toString();
    m_port = account.value(QStringLiteral("port")).toInt();
    m_security = account.value(QStringLiteral("sequrity")).toInt(); // the platform spells it so
}

void MailSenderHandler::createSender()
{
    // Whoever holds the last reference, and on whatever thread: the sender is deleted on its own.
    m_mailSender.reset(new MailSender(m_host, m_port, static_cast<MailSender::Security>(m_security),
                                      m_login, m_password, nullptr),
                       &QObject::deleteLater);
    connect(m_mailSender.data(), &MailSender::signalFinished, this, [this] {
        reply({{QStringLiteral("status"), QStringLiteral("success")}});
    });
    connect(m_mailSender.data(), &MailSender::signalError, this,
            [this](const int &code, const QString &text) { publishError(code, text); });
}

void MailSenderHandler::publishError(int code, const QString &text)
{
    reply({{QStringLiteral("status"), QStringLiteral("error")},
           {QStringLiteral("code"), QString::number(code)},
           {QStringLiteral("text"), text}});
}

void MailSenderHandler::reply(const QVariantMap &attributes)
{
    if (isRetired())
        return; // the page sends through the successor
    m_brocker->publish(Message(constants::MAIL_SENDER_RESPONSE, attributes));
}

} // namespace panorel
