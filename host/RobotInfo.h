#pragma once

#include "host/Export.h"

#include <QDateTime>
#include <QString>
#include <QUuid>

/// Who this robot is. The robot core defines the operations.
class PANOREL_HOST_EXPORT RobotInfo
{
public:
    static QUuid uuidRobot();
    static QUuid uuidOwner();
    static QString name();
    static QDateTime dateOfCreation();
};
