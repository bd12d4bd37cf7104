#include "host/IPrinter.h"

IPrinter::IPrinter(QObject *parent)
    : IDevice(parent)
{ }

IPrinter::~IPrinter() = default;
