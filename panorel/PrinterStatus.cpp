#include "panorel/PrinterStatus.h"

#include "host/IPrinter.h"

namespace panorel {

void PrinterStatus::follow(const IPrinter *printer, const QObject *owner)
{
    qRegisterMetaType<PrinterState>();
    if (!printer)
        return;
    QObject::connect(printer, &IPrinter::signalError, owner,
                     [this](const int &code, const QString &message) {
                         errorCode = code;
                         errorMessage = message;
                     });
    QObject::connect(printer, &IPrinter::signalState, owner,
                     [this](const PrinterState &reported) { state = reported; });
}

} // namespace panorel
