#pragma once

#include "host/Export.h"

#include <QObject>

/// Base of the robot's devices. Lives on the GUI thread, where all operations are called.
class PANOREL_HOST_EXPORT IDevice : public QObject
{
    Q_OBJECT

public:
    explicit IDevice(QObject *parent = nullptr);
    ~IDevice() override;

    /// Whether the device answers now. Called before most requests, so it must not block.
    virtual bool isConnected() = 0;
};
