#include "tests/support/TestMailServer.h"

#include "host/MailSender.h"

#include <QThread>

TestMailServer &TestMailServer::instance()
{
    static TestMailServer server;
    return server;
}

void TestMailServer::reset()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_accounts.clear();
    m_sendings.clear();
    m_deletions.clear();
    m_passing.clear();
    m_outcomes.clear();
    m_returned = 0;
    m_open = true;
}

QList<TestMailServer::Account> TestMailServer::accounts() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_accounts;
}

QList<TestMailServer::Sending> TestMailServer::sendings() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_sendings;
}

int TestMailServer::livingSenders() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_living;
}

QList<QThread *> TestMailServer::deletions() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_deletions;
}

int TestMailServer::returned() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_returned;
}

void TestMailServer::setOpen(bool open)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_open = open;
    m_changed.notify_all();
}

bool TestMailServer::isOpen() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_open;
}

void TestMailServer::letPass(const QString &to)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_passing.append(to);
    m_changed.notify_all();
}

void TestMailServer::setOutcome(const QString &to, const Outcome &outcome)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_outcomes.append({to, outcome});
}

int TestMailServer::addSender(const Account &account)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_accounts.append(account);
    ++m_living;
    return m_accounts.size() - 1;
}

void TestMailServer::removeSender()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_deletions.append(QThread::currentThread());
    --m_living;
}

TestMailServer::Outcome TestMailServer::enter(const Sending &sending)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_sendings.append(sending);
    for (const auto &outcome : qAsConst(m_outcomes))
        if (outcome.first == sending.to)
            return outcome.second;
    return {};
}

void TestMailServer::waitAtGate(const QString &to)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this, &to] { return m_open || m_passing.removeOne(to); });
}

void TestMailServer::leave()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    ++m_returned;
}

struct MailSender::Private
{
    int account;
};

MailSender::MailSender(const QString &host, const int &port, const MailSender::Security &security,
                       const QString &login, const QString &password, QObject *parent)
    : QObject(parent)
    , d(new Private{TestMailServer::instance().addSender(
          {host, port, static_cast<int>(security), login, password, parent != nullptr})})
{ }

MailSender::~MailSender()
{
    TestMailServer::instance().removeSender();
    delete d;
}

void MailSender::send(const QString &from, const QString &to, const QString &subject,
                      const QString &body, const QStringList &files)
{
    TestMailServer &server = TestMailServer::instance();
    const TestMailServer::Outcome outcome =
        server.enter({d->account, QThread::currentThread(), from, to, subject, body, files});
    server.waitAtGate(to);
    if (outcome.code == 0)
        Q_EMIT signalFinished();
    else
        Q_EMIT signalError(outcome.code, outcome.text);
    if (outcome.waitsBeforeReturn)
        server.waitAtGate(to);
    // Whoever deleted the sender meanwhile is caught here by the sanitizers.
    Q_ASSERT(d->account >= 0);
    server.leave();
}
