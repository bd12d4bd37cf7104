#pragma once

#include "tests/support/HostCall.h"

#include <QDateTime>
#include <QString>
#include <QUuid>

/// What the platform's own functions answer in a program that is linked with TestPlatform.cpp: it
/// defines RobotInfo and the functions of host/karvel.h instead of the simulator. GUI thread.
struct TestPlatform
{
    static TestPlatform &instance();

    /// "exec" (command), "getSoundVolume", "setSoundVolume" (volume), "getMicVolume",
    /// "setMicVolume" (level), in the order in which they were made.
    QVector<HostCall> calls;

    QString output; ///< of every command
    int soundVolume = 0;
    int microphoneLevel = 0;

    QUuid robot;
    QUuid owner;
    QString name;
    QDateTime dateOfCreation;
};
