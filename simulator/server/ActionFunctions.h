#pragma once

#include <QJsonObject>
#include <QString>

namespace panorel {
class MessageQueueBrocker;
}

namespace simulator {

class ActionValues;
class RobotCore;

/// What the actions act on.
struct ActionTarget
{
    RobotCore *core;
    panorel::MessageQueueBrocker *brocker;
};

/// One action. Takes all its values, then acts; @p result is empty unless it says something. Returns
/// what is wrong, empty when it acted.
using ActionFunction = QString (*)(const ActionTarget &target, ActionValues &values,
                                   QJsonObject &result);

namespace actions {

// What happens before the robot: PersonActions.cpp.
QString enter(const ActionTarget &target, ActionValues &values, QJsonObject &result);
QString leave(const ActionTarget &target, ActionValues &values, QJsonObject &result);
QString hear(const ActionTarget &target, ActionValues &values, QJsonObject &result);
QString ask(const ActionTarget &target, ActionValues &values, QJsonObject &result);
QString interaction(const ActionTarget &target, ActionValues &values, QJsonObject &result);
QString pace(const ActionTarget &target, ActionValues &values, QJsonObject &result);
QString tell(const ActionTarget &target, ActionValues &values, QJsonObject &result);

// What happens to its devices: DeviceActions.cpp.
QString printer(const ActionTarget &target, ActionValues &values, QJsonObject &result);
QString dispenser(const ActionTarget &target, ActionValues &values, QJsonObject &result);
QString passportScanner(const ActionTarget &target, ActionValues &values, QJsonObject &result);
QString documentScanner(const ActionTarget &target, ActionValues &values, QJsonObject &result);
QString telephone(const ActionTarget &target, ActionValues &values, QJsonObject &result);
QString drive(const ActionTarget &target, ActionValues &values, QJsonObject &result);
QString operatorDesk(const ActionTarget &target, ActionValues &values, QJsonObject &result);
QString mail(const ActionTarget &target, ActionValues &values, QJsonObject &result);

/// The mistake of an action for a device that the robot does not have.
QString missingDevice(const char *device);

} // namespace actions

} // namespace simulator
