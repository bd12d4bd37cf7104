#pragma once

#include "host/IScanner.h"
#include "simulator/core/Pace.h"

#include <QMap>
#include <QTimer>

namespace simulator {

/// A scanner of documents or passports: it waits for a sheet, scans, recognises and reports the
/// fields that were chosen beforehand. GUI thread.
class SimulatedScanner : public IScanner
{
    Q_OBJECT

public:
    explicit SimulatedScanner(const Pace &pace, QObject *parent = nullptr);

    bool isConnected() override;
    /// Refused when the scanner is unplugged or busy. Progress runs from 0 to 100. Without a
    /// document it gives up after @p timeout seconds of the robot's time.
    bool scan(const double &timeout) override;
    void setMode(const quint8 &mode) override;
    void setBrightness(const quint8 &brightness) override;
    void setResolution(const quint16 &resolution) override;

    /// Unplugs the scanner or plugs it in again; a running scan ends without a result.
    void setConnected(bool connected);
    /// Whether a document lies on the scanner. Laid down during a scan, it is scanned.
    void setDocumentPresent(bool present);
    bool isDocumentPresent() const;
    /// What the next scans read: field name to text.
    void setResult(const QMap<QString, QString> &result);
    QMap<QString, QString> result() const;
    /// Ends the running scan, if any, with an error of the scanner's.
    void injectError(int code, const QString &text);

    ScannerState state() const;
    /// How far the scan has come that runs or ran last, from 0 to 100.
    int progress() const;
    quint8 mode() const;
    quint8 brightness() const;
    /// In dots per inch.
    quint16 resolution() const;

    /// How long one document takes, in milliseconds of the robot's time.
    void setScanTime(int milliseconds);

Q_SIGNALS:
    void documentPresentChanged(bool present);
    void resultChanged();
    /// Mode, brightness or resolution.
    void optionsChanged();

private:
    void onStep();
    void onTimeout();
    void setState(ScannerState state);

    Pace m_pace;
    QTimer m_step;
    QTimer m_timeout;
    QMap<QString, QString> m_result;
    ScannerState m_state = ScannerStateIdle;
    bool m_connected = true;
    bool m_documentPresent = true;
    int m_progress = 0;
    int m_scanTime = 2000;
    quint8 m_mode = 0;
    quint8 m_brightness = 128;
    quint16 m_resolution = 300;
};

} // namespace simulator
