#include "Robot.h"

#include "CardDispenser.h"

#include "host/IInteractionService.h"
#include "host/IKeyboard.h"
#include "host/IMacrosReplacer.h"
#include "host/IPrinter.h"
#include "host/IUsersDatabase.h"

namespace {

constexpr int cardsAtFirst = 2;

} // namespace

Robot::Robot()
    : m_dispenser(QSharedPointer<CardDispenser>::create(cardsAtFirst))
{ }

QVariant Robot::appParameter(const QString &key, const QVariant &defaultValue) const
{
    return key == QStringLiteral("/visit/floor") ? QVariant(3) : defaultValue;
}

QVariant Robot::sysParameter(const QString &, const QVariant &defaultValue) const
{
    return defaultValue;
}

QMap<QString, QVariant> Robot::appParameterGroup(const QString &group) const
{
    if (group != QStringLiteral("visit"))
        return {};
    return {{QStringLiteral("floor"), 3}};
}

QMap<QString, QVariant> Robot::sysParameterGroup(const QString &) const { return {}; }
QMap<QString, QVariant> Robot::emailParameters() const { return {}; }

QSharedPointer<IDevice> Robot::device(const Device &device) const
{
    return device == Device::CardDispenser ? m_dispenser : QSharedPointer<IDevice>();
}

QSharedPointer<IPrinter> Robot::printer(const Device &) const { return {}; }
QSharedPointer<IKeyboard> Robot::keyboard() const { return {}; }
QSharedPointer<IUsersDatabase> Robot::databaseUsers() const { return {}; }
QSharedPointer<IInteractionService> Robot::interactionService() const { return {}; }
QSharedPointer<IMacrosReplacer> Robot::macrosReplacer() const { return {}; }

void Dialog::processReplica(const QSharedPointer<Replica> &, const bool &) { }
void Dialog::setAnswerResult(const QSharedPointer<Answer> &, bool) { }
void Dialog::setQuestionHandler(QuestionHandler *) { }
