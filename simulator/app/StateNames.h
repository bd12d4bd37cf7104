#pragma once

#include <QString>
#include <QStringList>

namespace simulator {

/// The names that the window shows for the robot's enumerations. A number without a name shows as
/// the number.
class StateNames
{
public:
    // In the order of their values, which begin with 0.
    static QStringList driveModes();
    static QStringList movements();
    static QStringList chargerMovements();
    static QStringList operatorResponses();
    static QStringList finishes();
    static QStringList reasons();

    static QString name(const QStringList &names, int value);
};

} // namespace simulator
