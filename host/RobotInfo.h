#pragma once

#include "host/Export.h"

#include <QDateTime>
#include <QString>
#include <QUuid>

/// Who this robot is. The robot core defines the operations.
class PANOREL_HOST_EXPORT RobotInfo
{
public:
    /// This robot.
    static QUuid uuidRobot();
    /// Whom it belongs to.
    static QUuid uuidOwner();
    /// What it is called, as people say it.
    static QString name();
    /// When it was made, in any time zone.
    static QDateTime dateOfCreation();
};
