#pragma once

#include <QMetaType>

/// State that a scanner reports. Travels as its integer value.
enum ScannerState : int {
    ScannerStateIdle = 0,
    ScannerStateWaiting = 1,
    ScannerStateScanning = 2,
    ScannerStateRecognizing = 3,
    ScannerStateDisconnected = 4,
};

Q_DECLARE_METATYPE(ScannerState)
