#include "simulator/app/StateNames.h"

namespace simulator {

QStringList StateNames::driveModes()
{
    return {tr("manual"), tr("automatic"), tr("follow"), tr("disabled")};
}

QStringList StateNames::movements()
{
    return {tr("stopped"), tr("moving"), tr("paused"), tr("reached"), tr("blocked")};
}

QStringList StateNames::chargerMovements()
{
    return {tr("away"), tr("approaching"), tr("charging"), tr("leaving"), tr("failed")};
}

QStringList StateNames::operatorResponses()
{
    return {tr("queued"), tr("accepted"), tr("busy"), tr("absent")};
}

QStringList StateNames::finishes() { return {tr("success"), tr("cancelled"), tr("failed")}; }

QStringList StateNames::reasons()
{
    return {tr("unknown"), tr("face seen"), tr("speech heard"), tr("screen touched"),
            tr("requested")};
}

QStringList StateNames::printerStates()
{
    return {tr("idle"), tr("printing"), tr("error"), tr("not connected")};
}

QStringList StateNames::scannerStates()
{
    return {tr("idle"), tr("waits for a document"), tr("scanning"), tr("recognizing"),
            tr("not connected")};
}

QStringList StateNames::callStates()
{
    return {tr("no call"), tr("calling"), tr("ringing"), tr("connected"),
            tr("busy"),    tr("failed"),  tr("ended")};
}

QStringList StateNames::callOutcomes() { return {tr("answered"), tr("busy"), tr("no answer")}; }

QStringList StateNames::dispenserBits()
{
    return {tr("capture sensor 1"),
            tr("capture sensor 2"),
            tr("card at the exit"),
            tr("no cards"),
            tr("few cards"),
            tr("card jam"),
            tr("card overlap"),
            {},
            tr("dispense error"),
            tr("capture error"),
            {},
            tr("dispensing"),
            tr("card bin full"),
            {},
            tr("communication timeout"),
            tr("not connected")};
}

QString StateNames::name(const QStringList &names, int value)
{
    return names.value(value, QString::number(value));
}

} // namespace simulator
