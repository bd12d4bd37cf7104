#include "host/RobotInfo.h"

#include "simulator/core/RobotIdentity.h"

using simulator::RobotIdentity;

QUuid RobotInfo::uuidRobot() { return RobotIdentity::instance().robot; }

QUuid RobotInfo::uuidOwner() { return RobotIdentity::instance().owner; }

QString RobotInfo::name() { return RobotIdentity::instance().name; }

QDateTime RobotInfo::dateOfCreation() { return RobotIdentity::instance().dateOfCreation; }
