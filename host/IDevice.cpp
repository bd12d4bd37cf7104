#include "host/IDevice.h"

IDevice::IDevice(QObject *parent)
    : QObject(parent)
{ }

IDevice::~IDevice() = default;
