#include "tests/support/TestMailServer.h"

#include "host/MailSender.h"

#include <QMutexLocker>
#include <QThread>

TestMailServer &TestMailServer::instance()
{
    static TestMailServer server;
    return server;
}

void TestMailServer::reset()
{
    const QMutexLocker lock(&m_mutex);
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
    const QMutexLocker lock(&m_mutex);
    return m_accounts;
}

QList<TestMailServer::Sending> TestMailServer::sendings() const
{
    const QMutexLocker lock(&m_mutex);
    return m_sendings;
}

int TestMailServer::livingSenders() const
{
    const QMutexLocker lock(&m_mutex);
    return m_living;
}

QList<QThread *> TestMailServer::deletions() const
{
    const QMutexLocker lock(&m_mutex);
    return m_deletions;
}

int TestMailServer::returned() const
{
    const QMutexLocker lock(&m_mutex);
    return m_returned;
}

void TestMailServer::setOpen(bool open)
{
    const QMutexLocker lock(&m_mutex);
    m_open = open;
    m_changed.wakeAll();
}

void TestMailServer::letPass(const QString &to)
{
    const QMutexLocker lock(&m_mutex);
    m_passing.append(to);
    m_changed.wakeAll();
}

void TestMailServer::setOutcome(const QString &to, const Outcome &outcome)
{
    const QMutexLocker lock(&m_mutex);
    m_outcomes.append({to, outcome});
}

int TestMailServer::addSender(const Account &account)
{
    const QMutexLocker lock(&m_mutex);
    m_accounts.append(account);
    ++m_living;
    return m_accounts.size() - 1;
}

void TestMailServer::removeSender()
{
    const QMutexLocker lock(&m_mutex);
    m_deletions.append(QThread::currentThread());
    --m_living;
}

TestMailServer::Outcome TestMailServer::enter(const Sending &sending)
{
    const QMutexLocker lock(&m_mutex);
    m_sendings.append(sending);
    for (const auto &outcome : qAsConst(m_outcomes))
        if (outcome.first == sending.to)
            return outcome.second;
    return {};
}

void TestMailServer::waitAtGate(const QString &to)
{
    const QMutexLocker lock(&m_mutex);
    while (!m_open && !m_passing.removeOne(to))
        m_changed.wait(&m_mutex);
}

void TestMailServer::leave()
{
    const QMutexLocker lock(&m_mutex);
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
