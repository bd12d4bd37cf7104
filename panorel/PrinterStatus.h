#pragma once

#include "host/PrinterState.h"

#include <QString>

class IPrinter;
class QObject;

namespace panorel {

/// What a printer announced last through its signals. A state does not clear the error: an error
/// state that comes without a new error means the old one again.
struct PrinterStatus
{
    /// The error codes with a meaning of their own; any other is a general error.
    enum ErrorCode { NoPaper = 1, LowPaper = 2 };

    /// Keeps this up to date with @p printer, for as long as @p owner, which holds it, lives.
    /// Without a printer it stays as it is.
    void follow(const IPrinter *printer, const QObject *owner);

    PrinterState state = PrinterState::Idle;
    int errorCode = 0;
    QString errorMessage;
};

} // namespace panorel
