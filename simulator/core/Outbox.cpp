#include "simulator/core/Outbox.h"

#include <QThread>

namespace simulator {

namespace {

const int KeptMails = 100;

} // namespace

Outbox &Outbox::instance()
{
    static Outbox outbox;
    return outbox;
}

void Outbox::accept()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_refusing = false;
    lock.unlock();
    Q_EMIT answerChanged();
}

void Outbox::refuse(int code, const QString &text)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_refusing = true;
    m_refusalCode = code;
    m_refusalText = text;
    lock.unlock();
    Q_EMIT answerChanged();
}

bool Outbox::isRefusing(int &code, QString &text) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_refusing) {
        code = m_refusalCode;
        text = m_refusalText;
    }
    return m_refusing;
}

bool Outbox::take(const Mail &mail, int &code, QString &text)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    const int transferTime = m_pace.milliseconds(m_transferTime);
    lock.unlock();
    QThread::msleep(static_cast<unsigned long>(transferTime));

    lock.lock();
    if (m_refusing) {
        code = m_refusalCode;
        text = m_refusalText;
        return false;
    }
    m_mails.append(mail);
    m_mails.last().number = ++m_count;
    if (m_mails.size() > KeptMails)
        m_mails.removeFirst();
    lock.unlock();

    Q_EMIT taken(mail.to, mail.subject);
    return true;
}

QList<Mail> Outbox::mails() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_mails;
}

void Outbox::clear()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_mails.clear();
    lock.unlock();
    Q_EMIT cleared();
}

void Outbox::setPace(const Pace &pace)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_pace = pace;
}

void Outbox::setTransferTime(int milliseconds)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_transferTime = milliseconds;
}

} // namespace simulator
