#include "simulator/core/SimulatedScanner.h"

namespace simulator {

namespace {

const int NoDocument = 1;
const int ProgressStep = 20;
const int WholeDocument = 100;

} // namespace

SimulatedScanner::SimulatedScanner(const Pace &pace, QObject *parent)
    : IScanner(parent)
    , m_pace(pace)
{
    m_step.setSingleShot(true);
    m_timeout.setSingleShot(true);
    connect(&m_step, &QTimer::timeout, this, &SimulatedScanner::onStep);
    connect(&m_timeout, &QTimer::timeout, this, &SimulatedScanner::onTimeout);
}

bool SimulatedScanner::isConnected() { return m_connected; }

bool SimulatedScanner::scan(const double &timeout)
{
    if (!m_connected || m_state != ScannerStateIdle)
        return false;

    m_progress = 0;
    setState(ScannerStateWaiting);
    // An hour is as good as for ever, and keeps the milliseconds within an int.
    const double seconds = qBound(0.0, timeout, 3600.0);
    m_timeout.start(m_pace.milliseconds(qRound(seconds * 1000)));
    if (m_documentPresent)
        m_step.start(m_pace.milliseconds(m_scanTime * ProgressStep / WholeDocument));
    return true;
}

void SimulatedScanner::setMode(const quint8 &mode)
{
    m_mode = mode;
    Q_EMIT optionsChanged();
}

void SimulatedScanner::setBrightness(const quint8 &brightness)
{
    m_brightness = brightness;
    Q_EMIT optionsChanged();
}

void SimulatedScanner::setResolution(const quint16 &resolution)
{
    m_resolution = resolution;
    Q_EMIT optionsChanged();
}

void SimulatedScanner::setConnected(bool connected)
{
    if (m_connected == connected)
        return;
    m_connected = connected;
    m_step.stop();
    m_timeout.stop();
    setState(connected ? ScannerStateIdle : ScannerStateDisconnected);
}

void SimulatedScanner::setDocumentPresent(bool present)
{
    if (m_documentPresent == present)
        return;
    m_documentPresent = present;
    Q_EMIT documentPresentChanged(present);
    if (m_state != ScannerStateWaiting)
        return;
    if (!present)
        m_step.stop();
    else
        m_step.start(m_pace.milliseconds(m_scanTime * ProgressStep / WholeDocument));
}

bool SimulatedScanner::isDocumentPresent() const { return m_documentPresent; }

void SimulatedScanner::setResult(const QMap<QString, QString> &result)
{
    if (m_result == result)
        return;
    m_result = result;
    Q_EMIT resultChanged();
}

QMap<QString, QString> SimulatedScanner::result() const { return m_result; }

void SimulatedScanner::injectError(int code, const QString &text)
{
    m_step.stop();
    m_timeout.stop();
    Q_EMIT signalError(code, text);
    if (m_connected && m_state != ScannerStateIdle)
        setState(ScannerStateIdle);
}

ScannerState SimulatedScanner::state() const { return m_state; }

int SimulatedScanner::progress() const { return m_progress; }

quint8 SimulatedScanner::mode() const { return m_mode; }

quint8 SimulatedScanner::brightness() const { return m_brightness; }

quint16 SimulatedScanner::resolution() const { return m_resolution; }

void SimulatedScanner::setScanTime(int milliseconds) { m_scanTime = milliseconds; }

void SimulatedScanner::onStep()
{
    if (m_state == ScannerStateWaiting) {
        m_timeout.stop();
        setState(ScannerStateScanning);
    }

    if (m_state == ScannerStateScanning && m_progress < WholeDocument) {
        m_progress += ProgressStep;
        Q_EMIT signalProgress(m_progress);
        if (m_progress == WholeDocument)
            setState(ScannerStateRecognizing);
        m_step.start(m_pace.milliseconds(m_scanTime * ProgressStep / WholeDocument));
    } else {
        Q_EMIT signalFinish(m_result);
        setState(ScannerStateIdle);
    }
}

void SimulatedScanner::onTimeout()
{
    injectError(NoDocument, QStringLiteral("No document was laid on the scanner"));
}

void SimulatedScanner::setState(ScannerState state)
{
    m_state = state;
    Q_EMIT signalState(state);
}

} // namespace simulator
