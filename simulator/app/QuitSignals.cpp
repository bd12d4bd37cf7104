#include "simulator/app/QuitSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace simulator {

int QuitSignals::s_writeEnd = -1;

QuitSignals::QuitSignals(QObject *parent)
    : QObject(parent)
{
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return; // The signals keep their usual effect.
    m_readEnd = ends[0];
    s_writeEnd = ends[1];
    m_notifier = new QSocketNotifier(m_readEnd, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &QuitSignals::quit);
    std::signal(SIGINT, &QuitSignals::onSignal);
    std::signal(SIGTERM, &QuitSignals::onSignal);
}

QuitSignals::~QuitSignals()
{
    if (m_readEnd < 0)
        return;
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    ::close(s_writeEnd);
    s_writeEnd = -1;
    // The notifier goes before the file that it watches.
    delete m_notifier;
    ::close(m_readEnd);
}

void QuitSignals::onSignal(int number)
{
    Q_UNUSED(number)
    const char byte = 1;
    // A full pipe has woken the loop already.
    const auto written = ::write(s_writeEnd, &byte, 1);
    Q_UNUSED(written)
}

void QuitSignals::quit()
{
    char bytes[16];
    while (::read(m_readEnd, bytes, sizeof bytes) > 0) { }
    QCoreApplication::quit();
}

} // namespace simulator
