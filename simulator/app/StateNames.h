#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace simulator {

/// The names that the window shows for the robot's enumerations. A number without a name shows as
/// the number.
class StateNames
{
    Q_DECLARE_TR_FUNCTIONS(simulator::StateNames)

public:
    // In the order of their values, which begin with 0.
    static QStringList driveModes();
    static QStringList movements();
    static QStringList chargerMovements();
    static QStringList operatorResponses();
    static QStringList finishes();
    static QStringList reasons();
    static QStringList printerStates();
    static QStringList scannerStates();
    static QStringList callStates();
    /// In the order of TelephoneLine::Outcome.
    static QStringList callOutcomes();
    /// Of the status word's bits, the lowest first; empty for a bit without a meaning.
    static QStringList dispenserBits();

    static QString name(const QStringList &names, int value);
};

} // namespace simulator
