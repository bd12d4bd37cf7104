#pragma once

#include <QDateTime>
#include <QString>
#include <QUuid>

namespace simulator {

/// Who the simulated robot is; RobotInfo reads it. One object, made on its first use and kept
/// until the program ends. GUI thread.
struct RobotIdentity
{
    static RobotIdentity &instance();

    QUuid robot = QUuid(QStringLiteral("{0d5e4e0a-6f0b-4f43-9a3c-2f6f0c1d8a01}"));
    QUuid owner = QUuid(QStringLiteral("{7a1c2b3d-94e5-4c6f-8a7b-1c2d3e4f5a02}"));
    QString name = QStringLiteral("Robot on the desk");
    QDateTime dateOfCreation = QDateTime(QDate(2019, 4, 1), QTime(10, 15));
};

} // namespace simulator
