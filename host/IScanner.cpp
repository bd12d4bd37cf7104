#include "host/IScanner.h"

IScanner::IScanner(QObject *parent)
    : IDevice(parent)
{ }

IScanner::~IScanner() = default;
