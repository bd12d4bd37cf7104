#pragma once

#include <QSharedPointer>

namespace simulator {

class SimulatedDispenser;
class SimulatedInteractionService;
class SimulatedKeyboard;
class SimulatedMacrosReplacer;
class SimulatedPrinter;
class SimulatedScanner;
class SqliteUsersDatabase;

/// What the plug-in hands out. A null pointer is a device that the robot does not have; the
/// interaction service and the macro replacer are always there.
struct RobotDevices
{
    QSharedPointer<SimulatedPrinter> printer;
    QSharedPointer<SimulatedDispenser> dispenser;
    QSharedPointer<SimulatedScanner> passportScanner;
    QSharedPointer<SimulatedScanner> documentScanner;
    QSharedPointer<SimulatedKeyboard> keyboard;
    QSharedPointer<SqliteUsersDatabase> users;
    QSharedPointer<SimulatedInteractionService> interaction;
    QSharedPointer<SimulatedMacrosReplacer> macros;
};

} // namespace simulator
