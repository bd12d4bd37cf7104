#include "simulator/app/StateNames.h"

namespace simulator {

QStringList StateNames::driveModes()
{
    return {QStringLiteral("manual"), QStringLiteral("automatic"), QStringLiteral("follow"),
            QStringLiteral("disabled")};
}

QStringList StateNames::movements()
{
    return {QStringLiteral("stopped"), QStringLiteral("moving"), QStringLiteral("paused"),
            QStringLiteral("reached"), QStringLiteral("blocked")};
}

QStringList StateNames::chargerMovements()
{
    return {QStringLiteral("away"), QStringLiteral("approaching"), QStringLiteral("charging"),
            QStringLiteral("leaving"), QStringLiteral("failed")};
}

QStringList StateNames::operatorResponses()
{
    return {QStringLiteral("queued"), QStringLiteral("accepted"), QStringLiteral("busy"),
            QStringLiteral("absent")};
}

QStringList StateNames::finishes()
{
    return {QStringLiteral("success"), QStringLiteral("cancelled"), QStringLiteral("failed")};
}

QStringList StateNames::reasons()
{
    return {QStringLiteral("unknown"), QStringLiteral("face seen"), QStringLiteral("speech heard"),
            QStringLiteral("screen touched"), QStringLiteral("requested")};
}

QString StateNames::name(const QStringList &names, int value)
{
    return names.value(value, QString::number(value));
}

} // namespace simulator
