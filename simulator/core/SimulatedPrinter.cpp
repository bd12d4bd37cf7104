#include "simulator/core/SimulatedPrinter.h"

#include <QFile>

namespace simulator {

namespace {

const int NoPaper = 1;
const int LowPaper = 2;
const int KeptPrints = 50;

} // namespace

SimulatedPrinter::SimulatedPrinter(const Pace &pace, QObject *parent)
    : IPrinter(parent)
    , m_pace(pace)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &SimulatedPrinter::onPrinted);
}

bool SimulatedPrinter::isConnected() { return m_connected; }

bool SimulatedPrinter::print(const QString &file)
{
    if (!m_connected || m_refusing || (m_hasInjectedError && m_injectedCode != LowPaper))
        return false;
    if (m_paper <= m_waiting.size()) {
        if (m_waiting.isEmpty())
            reportPaper();
        return false;
    }

    QFile picture(file);
    if (!picture.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = picture.readAll();
    if (!bytes.startsWith("\x89PNG\r\n\x1a\n"))
        return false;

    m_waiting.append(bytes);
    if (!m_timer.isActive())
        printNext();
    return true;
}

void SimulatedPrinter::setConnected(bool connected)
{
    if (m_connected == connected)
        return;
    m_connected = connected;
    m_timer.stop();
    m_waiting.clear();
    if (connected)
        becomeIdle();
    else
        setState(PrinterState::NotConnected);
}

void SimulatedPrinter::setPaper(int sheets)
{
    const int before = m_paper;
    m_paper = qMax(0, sheets);
    if (m_paper != before)
        Q_EMIT paperChanged(m_paper);
    if (m_connected && !m_timer.isActive() && !m_hasInjectedError)
        becomeIdle();
}

int SimulatedPrinter::paper() const { return m_paper; }

void SimulatedPrinter::injectError(int code, const QString &text)
{
    m_hasInjectedError = true;
    m_injectedCode = code;
    m_injectedText = text;
    m_timer.stop();
    m_waiting.clear();
    if (m_connected)
        reportError(code, text);
}

void SimulatedPrinter::clearError()
{
    if (!m_hasInjectedError)
        return;
    m_hasInjectedError = false;
    if (m_connected && !m_timer.isActive())
        becomeIdle();
}

void SimulatedPrinter::setRefusing(bool refusing)
{
    if (m_refusing == refusing)
        return;
    m_refusing = refusing;
    Q_EMIT refusingChanged(refusing);
}

bool SimulatedPrinter::isRefusing() const { return m_refusing; }

PrinterState SimulatedPrinter::state() const { return m_state; }

int SimulatedPrinter::errorCode() const { return m_errorCode; }

QString SimulatedPrinter::errorText() const { return m_errorText; }

QList<QByteArray> SimulatedPrinter::prints() const { return m_prints; }

int SimulatedPrinter::printCount() const { return m_printCount; }

void SimulatedPrinter::setPrintTime(int milliseconds) { m_printTime = milliseconds; }

void SimulatedPrinter::setLowPaper(int sheets)
{
    if (m_lowPaper == sheets)
        return;
    const bool wasLow = m_paper <= m_lowPaper;
    m_lowPaper = sheets;
    Q_EMIT lowPaperChanged(sheets);
    const bool isLow = m_paper <= m_lowPaper;
    if (wasLow != isLow && m_connected && !m_timer.isActive() && !m_hasInjectedError)
        becomeIdle();
}

int SimulatedPrinter::lowPaper() const { return m_lowPaper; }

void SimulatedPrinter::printNext()
{
    m_timer.start(m_pace.milliseconds(m_printTime));
    setState(PrinterState::InProcess);
}

void SimulatedPrinter::onPrinted()
{
    const QByteArray picture = m_waiting.takeFirst();
    m_prints.append(picture);
    if (m_prints.size() > KeptPrints)
        m_prints.removeFirst();
    ++m_printCount;
    m_paper = qMax(0, m_paper - 1);
    Q_EMIT paperChanged(m_paper);
    Q_EMIT printed(picture);

    if (!m_waiting.isEmpty())
        printNext();
    else
        becomeIdle();
}

// Idle, or the error that lasts.
void SimulatedPrinter::becomeIdle()
{
    setState(PrinterState::Idle);
    if (m_hasInjectedError)
        reportError(m_injectedCode, m_injectedText);
    else
        reportPaper();
}

void SimulatedPrinter::reportPaper()
{
    if (m_paper == 0)
        reportError(NoPaper, QStringLiteral("The printer has no paper"));
    else if (m_paper <= m_lowPaper)
        reportError(LowPaper, QStringLiteral("The printer is low on paper"));
}

void SimulatedPrinter::reportError(int code, const QString &text)
{
    m_errorCode = code;
    m_errorText = text;
    Q_EMIT signalError(code, text);
    setState(PrinterState::Error);
}

void SimulatedPrinter::setState(PrinterState state)
{
    m_state = state;
    Q_EMIT signalState(state);
}

} // namespace simulator
