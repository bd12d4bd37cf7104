#include "simulator/server/ActionFunctions.h"

#include "simulator/core/OperatorDesk.h"
#include "simulator/core/Outbox.h"
#include "simulator/core/RobotCore.h"
#include "simulator/core/SimulatedDispenser.h"
#include "simulator/core/SimulatedDrive.h"
#include "simulator/core/SimulatedPrinter.h"
#include "simulator/core/SimulatedScanner.h"
#include "simulator/core/TelephoneLine.h"
#include "simulator/server/ActionValues.h"

#include <limits>

namespace simulator {

namespace actions {

namespace {

const int LargestInt = std::numeric_limits<int>::max();

struct DeviceError
{
    int code = 0;
    QString text;
};

// "error": {"code", "text"}.
std::optional<DeviceError> takeError(ActionValues &values, QString &mistake)
{
    const std::optional<QJsonObject> object = values.object(QStringLiteral("error"));
    if (!object)
        return {};
    ActionValues inner(*object);
    DeviceError error;
    error.code = inner.neededNumber(QStringLiteral("code"), -LargestInt, LargestInt);
    error.text = inner.text(QStringLiteral("text")).value_or(QString());
    mistake = inner.mistake();
    return error;
}

QString setScanner(SimulatedScanner *scanner, ActionValues &values)
{
    QString wrongError;
    const auto connected = values.flag(QStringLiteral("connected"));
    const auto present = values.flag(QStringLiteral("present"));
    const auto fields = values.textMap(QStringLiteral("fields"));
    const auto error = takeError(values, wrongError);
    QString mistake = values.mistake() + wrongError;
    if (!mistake.isEmpty())
        return mistake;
    if (connected)
        scanner->setConnected(*connected);
    if (fields)
        scanner->setResult(*fields);
    if (present)
        scanner->setDocumentPresent(*present);
    if (error)
        scanner->injectError(error->code, error->text);
    return {};
}

} // namespace

QString missingDevice(const char *device)
{
    return QStringLiteral("This robot has no %1: start the simulator without --without.")
        .arg(QLatin1String(device));
}

QString printer(const ActionTarget &target, ActionValues &values, QJsonObject &)
{
    SimulatedPrinter *printer = target.core->devices().printer.data();
    if (!printer)
        return missingDevice("printer");
    QString wrongError;
    const auto connected = values.flag(QStringLiteral("connected"));
    const auto paper = values.number(QStringLiteral("paper"), 0, 100000);
    const auto refusing = values.flag(QStringLiteral("refusing"));
    const auto clear = values.flag(QStringLiteral("clear"));
    const auto error = takeError(values, wrongError);
    QString mistake = values.mistake() + wrongError;
    if (!mistake.isEmpty())
        return mistake;
    if (connected)
        printer->setConnected(*connected);
    if (paper)
        printer->setPaper(*paper);
    if (refusing)
        printer->setRefusing(*refusing);
    if (clear.value_or(false))
        printer->clearError();
    if (error)
        printer->injectError(error->code, error->text);
    return {};
}

QString dispenser(const ActionTarget &target, ActionValues &values, QJsonObject &)
{
    SimulatedDispenser *dispenser = target.core->devices().dispenser.data();
    if (!dispenser)
        return missingDevice("dispenser");
    const auto connected = values.flag(QStringLiteral("connected"));
    const auto cards = values.number(QStringLiteral("cards"), 0, 100000);
    const auto jammed = values.flag(QStringLiteral("jammed"));
    const auto binFull = values.flag(QStringLiteral("bin_full"));
    const auto taken = values.flag(QStringLiteral("taken"));
    const auto status = values.number(QStringLiteral("status"), 0, 0xffff);
    if (!values.mistake().isEmpty())
        return values.mistake();
    if (connected)
        dispenser->setConnected(*connected);
    if (cards)
        dispenser->setCards(*cards);
    if (jammed)
        dispenser->setJammed(*jammed);
    if (binFull)
        dispenser->setBinFull(*binFull);
    if (taken.value_or(false))
        dispenser->takeCard();
    if (status)
        dispenser->injectStatus(static_cast<unsigned short>(*status));
    return {};
}

QString passportScanner(const ActionTarget &target, ActionValues &values, QJsonObject &)
{
    SimulatedScanner *scanner = target.core->devices().passportScanner.data();
    return scanner ? setScanner(scanner, values) : missingDevice("passport scanner");
}

QString documentScanner(const ActionTarget &target, ActionValues &values, QJsonObject &)
{
    SimulatedScanner *scanner = target.core->devices().documentScanner.data();
    return scanner ? setScanner(scanner, values) : missingDevice("document scanner");
}

QString telephone(const ActionTarget &, ActionValues &values, QJsonObject &)
{
    // In the order of TelephoneLine::Outcome.
    const auto outcome = values.choice(
        QStringLiteral("outcome"),
        {QStringLiteral("answered"), QStringLiteral("busy"), QStringLiteral("no answer")});
    const auto key = values.number(QStringLiteral("key"), 0, TelephoneLine::HashTone);
    const auto hangUp = values.flag(QStringLiteral("hang_up"));
    if (!values.mistake().isEmpty())
        return values.mistake();
    TelephoneLine &line = TelephoneLine::instance();
    if (outcome)
        line.setOutcome(static_cast<TelephoneLine::Outcome>(*outcome));
    if (key)
        line.pressKey(*key);
    if (hangUp.value_or(false))
        line.hangUp();
    return {};
}

QString drive(const ActionTarget &target, ActionValues &values, QJsonObject &)
{
    // In the order of DriveMode.
    const auto mode = values.choice(QStringLiteral("mode"),
                                    {QStringLiteral("manual"), QStringLiteral("automatic"),
                                     QStringLiteral("follow"), QStringLiteral("disabled")});
    const auto travel = values.number(QStringLiteral("travel_time"), 1, 3600000);
    const auto block = values.flag(QStringLiteral("block"));
    if (!values.mistake().isEmpty())
        return values.mistake();
    if (mode)
        target.core->drive()->setMode(static_cast<DriveMode>(*mode));
    if (travel)
        target.core->drive()->setTravelTime(*travel);
    if (block.value_or(false))
        target.core->drive()->block();
    return {};
}

QString operatorDesk(const ActionTarget &target, ActionValues &values, QJsonObject &)
{
    const auto response = values.number(QStringLiteral("response"), 0, 255);
    const auto control = values.flag(QStringLiteral("control"));
    if (!values.mistake().isEmpty())
        return values.mistake();
    if (response)
        target.core->operatorDesk()->respond(static_cast<unsigned char>(*response));
    if (control)
        target.core->operatorDesk()->setControl(*control);
    return {};
}

QString mail(const ActionTarget &, ActionValues &values, QJsonObject &)
{
    QString wrongError;
    const auto error = takeError(values, wrongError);
    QString mistake = values.mistake() + wrongError;
    if (!mistake.isEmpty())
        return mistake;
    if (error)
        Outbox::instance().refuse(error->code, error->text);
    else
        Outbox::instance().accept();
    return {};
}

} // namespace actions

} // namespace simulator
