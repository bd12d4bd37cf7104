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

    /// The file's name within a data folder.
    static QString fileName();

    /// Takes over who @p file, an INI file, says the robot is. When it is not there, makes it, with its
    /// folder: a robot made now, with new UUIDs. What cannot be read, or not be written, keeps its
    /// value here, and the file stays as it is. Returns what is wrong and what to do; empty when
    /// nothing is.
    QString load(const QString &file);

    QUuid robot = QUuid(QStringLiteral("{0d5e4e0a-6f0b-4f43-9a3c-2f6f0c1d8a01}"));
    QUuid owner = QUuid(QStringLiteral("{7a1c2b3d-94e5-4c6f-8a7b-1c2d3e4f5a02}"));
    QString name = QStringLiteral("Robot on the desk");
    QDateTime dateOfCreation = QDateTime(QDate(2019, 4, 1), QTime(10, 15));

private:
    QString make(const QString &file);
};

} // namespace simulator
