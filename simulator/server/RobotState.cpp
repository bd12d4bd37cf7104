#include "simulator/server/RobotState.h"

#include "simulator/core/OperatorDesk.h"
#include "simulator/core/Outbox.h"
#include "simulator/core/RobotCore.h"
#include "simulator/core/SimulatedCamera.h"
#include "simulator/core/SimulatedDispenser.h"
#include "simulator/core/SimulatedDrive.h"
#include "simulator/core/SimulatedInteractionService.h"
#include "simulator/core/SimulatedKeyboard.h"
#include "simulator/core/SimulatedLanguage.h"
#include "simulator/core/SimulatedPrinter.h"
#include "simulator/core/SimulatedScanner.h"
#include "simulator/core/SimulatedScripts.h"
#include "simulator/core/SimulatedSpeech.h"
#include "simulator/core/TelephoneLine.h"

#include <QJsonArray>

namespace simulator {

namespace {

QJsonValue stateOf(SimulatedPrinter *printer)
{
    if (!printer)
        return QJsonValue();
    return QJsonObject{
        {QStringLiteral("connected"), printer->isConnected()},
        {QStringLiteral("state"), static_cast<int>(printer->state())},
        {QStringLiteral("paper"), printer->paper()},
        {QStringLiteral("printed"), printer->printCount()},
    };
}

QJsonValue stateOf(SimulatedDispenser *dispenser)
{
    if (!dispenser)
        return QJsonValue();
    return QJsonObject{
        {QStringLiteral("connected"), dispenser->isConnected()},
        {QStringLiteral("status"), dispenser->status()},
        {QStringLiteral("cards"), dispenser->cards()},
    };
}

QJsonValue stateOf(SimulatedScanner *scanner)
{
    if (!scanner)
        return QJsonValue();
    return QJsonObject{
        {QStringLiteral("connected"), scanner->isConnected()},
        {QStringLiteral("state"), static_cast<int>(scanner->state())},
        {QStringLiteral("present"), scanner->isDocumentPresent()},
    };
}

QJsonValue stateOf(SimulatedKeyboard *keyboard)
{
    if (!keyboard)
        return QJsonValue();
    return QJsonObject{
        {QStringLiteral("visible"), keyboard->isVisible()},
        {QStringLiteral("locale"), keyboard->locale()},
    };
}

QJsonArray sentMails()
{
    QJsonArray mails;
    const QList<Mail> taken = Outbox::instance().mails();
    for (const Mail &mail : taken) {
        mails.append(QJsonObject{
            {QStringLiteral("to"), mail.to},
            {QStringLiteral("subject"), mail.subject},
            {QStringLiteral("body"), mail.body},
            {QStringLiteral("files"), QJsonArray::fromStringList(mail.files)},
        });
    }
    return mails;
}

} // namespace

QJsonObject robotState(const RobotCore *core)
{
    const RobotDevices &devices = core->devices();
    const SimulatedDrive *drive = core->drive();
    const TelephoneLine &line = TelephoneLine::instance();
    return {
        {QStringLiteral("language"), core->language()->code()},
        {QStringLiteral("saying"), core->speech()->text()},
        {QStringLiteral("question"), core->dialog()->openQuestion()},
        {QStringLiteral("interaction"), devices.interaction->isRunning()},
        {QStringLiteral("people"), core->camera()->people().size()},
        {QStringLiteral("script"), core->scripts()->running()},
        {QStringLiteral("drive"),
         QJsonObject{
             {QStringLiteral("mode"), drive->mode()},
             {QStringLiteral("status"), drive->status()},
             {QStringLiteral("charger"), drive->chargerStatus()},
             {QStringLiteral("point"), drive->point()},
         }},
        {QStringLiteral("operator"),
         QJsonObject{
             {QStringLiteral("called"), core->operatorDesk()->isCalled()},
             {QStringLiteral("control"), core->operatorDesk()->hasControl()},
         }},
        {QStringLiteral("telephone"),
         QJsonObject{
             {QStringLiteral("state"), line.state()},
             {QStringLiteral("number"), line.number()},
         }},
        {QStringLiteral("mails"), sentMails()},
        {QStringLiteral("printer"), stateOf(devices.printer.data())},
        {QStringLiteral("dispenser"), stateOf(devices.dispenser.data())},
        {QStringLiteral("passport_scanner"), stateOf(devices.passportScanner.data())},
        {QStringLiteral("document_scanner"), stateOf(devices.documentScanner.data())},
        {QStringLiteral("keyboard"), stateOf(devices.keyboard.data())},
    };
}

} // namespace simulator
