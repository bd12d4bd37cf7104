#include "host/IDispenser.h"

IDispenser::IDispenser(QObject *parent)
    : IDevice(parent)
{ }

IDispenser::~IDispenser() = default;
