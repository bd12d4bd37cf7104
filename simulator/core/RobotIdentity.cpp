#include "simulator/core/RobotIdentity.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QSettings>

#include <optional>

namespace simulator {

namespace {

QString told(const QString &file, const QString &what)
{
    return QStringLiteral("Who this robot is stands in \"%1\", but %2.")
        .arg(QDir::cleanPath(QFileInfo(file).absoluteFilePath()), what);
}

std::optional<QUuid> uuidOf(const QSettings &settings, const QString &key)
{
    const QUuid uuid(settings.value(key).toString());
    return uuid.isNull() ? std::nullopt : std::optional<QUuid>(uuid);
}

} // namespace

RobotIdentity &RobotIdentity::instance()
{
    static RobotIdentity identity;
    return identity;
}

QString RobotIdentity::fileName() { return QStringLiteral("identity.ini"); }

QString RobotIdentity::load(const QString &file)
{
    if (!QFileInfo::exists(file))
        return make(file);

    QSettings settings(file, QSettings::IniFormat);
    settings.setIniCodec("UTF-8");
    const auto readRobot = uuidOf(settings, QStringLiteral("robot/uuid"));
    const auto readOwner = uuidOf(settings, QStringLiteral("owner/uuid"));
    const QString readName = settings.value(QStringLiteral("robot/name")).toString();
    const QDateTime readDate = QDateTime::fromString(
        settings.value(QStringLiteral("robot/created")).toString(), Qt::ISODate);
    if (settings.status() != QSettings::NoError)
        return told(file,
                    QStringLiteral("it cannot be read. Mend it, or delete it: a new one is made"));

    QStringList wrong;
    const auto note = [&wrong](bool isRight, const char *line) {
        if (!isRight)
            wrong.append(QLatin1String(line));
    };
    note(readRobot.has_value(), "robot/uuid");
    note(readOwner.has_value(), "owner/uuid");
    note(!readName.isEmpty(), "robot/name");
    note(readDate.isValid(), "robot/created");
    robot = readRobot.value_or(robot);
    owner = readOwner.value_or(owner);
    if (!readName.isEmpty())
        name = readName;
    if (readDate.isValid())
        dateOfCreation = readDate;
    if (wrong.isEmpty())
        return {};
    return told(
        file,
        QStringLiteral("it lacks %1, or what stands there cannot be read. Mend it, or delete "
                       "the file: a new one is made")
            .arg(wrong.join(QStringLiteral(", "))));
}

// Written at once and as a whole, so that a robot keeps its UUID whatever happens. Read back by QSettings.
QString RobotIdentity::make(const QString &file)
{
    const QUuid newRobot = QUuid::createUuid();
    const QUuid newOwner = QUuid::createUuid();
    const QDateTime now = QDateTime::fromSecsSinceEpoch(QDateTime::currentSecsSinceEpoch());

    QSaveFile made(file);
    const bool isWritten = QDir().mkpath(QFileInfo(file).path()) && made.open(QIODevice::WriteOnly)
        && made.write(
               QStringLiteral("[robot]\nuuid=%1\nname=\"%2\"\ncreated=%3\n\n[owner]\nuuid=%4\n")
                   .arg(newRobot.toString(), name, now.toString(Qt::ISODate), newOwner.toString())
                   .toUtf8())
            > 0
        && made.commit();
    if (!isWritten)
        return told(file,
                    QStringLiteral("it cannot be made: %1. Until the program ends this robot is "
                                   "the sample one")
                        .arg(made.errorString()));
    robot = newRobot;
    owner = newOwner;
    dateOfCreation = now;
    return {};
}

} // namespace simulator
