#pragma once

#include "host/IDevice.h"
#include "host/PrinterState.h"

#include <QString>

/// The badge printer.
class PANOREL_HOST_EXPORT IPrinter : public IDevice
{
    Q_OBJECT

public:
    explicit IPrinter(QObject *parent = nullptr);
    ~IPrinter() override;

    /// Prints the PNG picture at path @p file. Returns whether the printer took it.
    virtual bool print(const QString &file) = 0;

Q_SIGNALS:
    /// 1 means no paper, 2 paper low; any other code is a general error that @p text explains.
    void signalError(const int &code, const QString &text);
    /// What the printer does now. Requests are answered by the state that was announced last.
    void signalState(const PrinterState &state);
};
