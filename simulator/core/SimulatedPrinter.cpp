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
    if (!m_connected)
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
    setState(connected ? PrinterState::Idle : PrinterState::NotConnected);
    if (connected)
        reportPaper();
}

void SimulatedPrinter::setPaper(int sheets)
{
    m_paper = qMax(0, sheets);
    if (!m_connected || m_timer.isActive())
        return;
    setState(PrinterState::Idle);
    reportPaper();
}

int SimulatedPrinter::paper() const { return m_paper; }

void SimulatedPrinter::injectError(int code, const QString &text)
{
    m_timer.stop();
    m_waiting.clear();
    Q_EMIT signalError(code, text);
    setState(PrinterState::Error);
}

void SimulatedPrinter::clearError()
{
    if (m_state == PrinterState::Error)
        setState(PrinterState::Idle);
}

PrinterState SimulatedPrinter::state() const { return m_state; }

QList<QByteArray> SimulatedPrinter::prints() const { return m_prints; }

void SimulatedPrinter::setPrintTime(int milliseconds) { m_printTime = milliseconds; }

void SimulatedPrinter::setLowPaper(int sheets) { m_lowPaper = sheets; }

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
    m_paper = qMax(0, m_paper - 1);
    Q_EMIT printed(picture);

    if (!m_waiting.isEmpty()) {
        printNext();
    } else {
        setState(PrinterState::Idle);
        reportPaper();
    }
}

void SimulatedPrinter::reportPaper()
{
    if (m_paper > m_lowPaper)
        return;
    if (m_paper == 0)
        Q_EMIT signalError(NoPaper, QStringLiteral("The printer has no paper"));
    else
        Q_EMIT signalError(LowPaper, QStringLiteral("The printer is low on paper"));
    setState(PrinterState::Error);
}

void SimulatedPrinter::setState(PrinterState state)
{
    m_state = state;
    Q_EMIT signalState(state);
}

} // namespace simulator
