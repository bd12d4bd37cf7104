#pragma once

#include "host/IDevice.h"
#include "host/ScannerState.h"

#include <QMap>
#include <QString>

/// A scanner of documents or of passports.
class PANOREL_HOST_EXPORT IScanner : public IDevice
{
    Q_OBJECT

public:
    explicit IScanner(QObject *parent = nullptr);
    ~IScanner() override;

    /// Starts a scan that gives up after @p timeout seconds, which the page chooses: it may be zero,
    /// negative or not finite. Returns whether it started; the result comes with signalFinish.
    virtual bool scan(const double &timeout) = 0;

    /// Colour mode of the next scan, in the scanner's own numbering.
    virtual void setMode(const quint8 &mode) = 0;
    /// Brightness of the next scan, in the scanner's own scale.
    virtual void setBrightness(const quint8 &brightness) = 0;
    /// Resolution of the next scan, in dots per inch.
    virtual void setResolution(const quint16 &resolution) = 0;

Q_SIGNALS:
    /// A scan failed, or the scanner does; @p code is in the scanner's own numbering.
    void signalError(const int &code, const QString &text);
    /// The scanner's state changed; travels as its integer value.
    void signalState(const ScannerState &state);
    /// How far the scan has come, in the scanner's own scale.
    void signalProgress(const double &progress);
    /// What was read: field name to text.
    void signalFinish(QMap<QString, QString> data);
};
