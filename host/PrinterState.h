#pragma once

#include <QMetaType>

/// State that a printer reports. A printer may report other values; they are passed over.
enum class PrinterState {
    Idle = 0,
    InProcess = 1,
    Error = 2,
    NotConnected = 3,
};

Q_DECLARE_METATYPE(PrinterState)
