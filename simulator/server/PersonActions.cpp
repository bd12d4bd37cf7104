#include "simulator/server/ActionFunctions.h"

#include "host/UserData.h"
#include "panorel/Message.h"
#include "panorel/MessageQueueBrocker.h"
#include "panorel/PanorelMessageHandler.h"
#include "simulator/core/RobotCore.h"
#include "simulator/core/SimulatedCamera.h"
#include "simulator/core/SimulatedInteractionService.h"
#include "simulator/core/SqliteUsersDatabase.h"
#include "simulator/server/ActionValues.h"

#include <QRandomGenerator>

#include <limits>

namespace simulator {

namespace actions {

namespace {

const int LargestInt = std::numeric_limits<int>::max();

} // namespace

QString enter(const ActionTarget &target, ActionValues &values, QJsonObject &result)
{
    const auto known = values.number(QStringLiteral("id"), 1, LargestInt);
    const auto name = values.text(QStringLiteral("name"));
    const auto age = values.factor(QStringLiteral("age"), 0, 150);
    if (!values.mistake().isEmpty())
        return values.mistake();

    long long id = known.value_or(0);
    if (name) {
        SqliteUsersDatabase *users = target.core->devices().users.data();
        if (!users)
            return missingDevice("user database");
        if (!known)
            id = QRandomGenerator::global()->bounded(1000, LargestInt);
        FaceInfo face;
        face.setId(id);
        face.setType(FaceInfo::User);
        face.setAge(age.value_or(0));
        UserData user;
        user.setInfo(face);
        user.setName(*name);
        user.setAcquaintanceDate(QDateTime::currentDateTime());
        if (!users->addUser(user))
            return QStringLiteral("The robot knows somebody with the id %1 already.").arg(id);
    }
    const long long track = target.core->camera()->enter(id);
    if (track == 0)
        return QStringLiteral("The picture is full, or this person is in it.");
    result = {{QStringLiteral("id"), id}, {QStringLiteral("track"), track}};
    return {};
}

QString leave(const ActionTarget &target, ActionValues &values, QJsonObject &)
{
    const auto track = values.number(QStringLiteral("track"), 1, LargestInt);
    if (!values.mistake().isEmpty())
        return values.mistake();
    if (!track)
        target.core->camera()->leaveAll();
    else if (!target.core->camera()->leave(*track))
        return QStringLiteral("Nobody in the picture has the track %1.").arg(*track);
    return {};
}

QString hear(const ActionTarget &target, ActionValues &values, QJsonObject &)
{
    const QString text = values.neededText(QStringLiteral("text"));
    const bool isFinal = values.flag(QStringLiteral("final")).value_or(true);
    if (values.mistake().isEmpty())
        target.core->dialog()->hear(text, isFinal);
    return values.mistake();
}

QString ask(const ActionTarget &target, ActionValues &values, QJsonObject &)
{
    const auto text = values.text(QStringLiteral("text"));
    const auto answers = values.texts(QStringLiteral("answers"));
    if (!values.mistake().isEmpty())
        return values.mistake();
    if (text)
        target.core->dialog()->askQuestion(*text, answers.value_or(QStringList()));
    else
        target.core->dialog()->cancelQuestion();
    return {};
}

QString interaction(const ActionTarget &target, ActionValues &values, QJsonObject &)
{
    // In the order of Interaction::Reason.
    const auto reason =
        values.choice(QStringLiteral("reason"),
                      {QStringLiteral("unknown"), QStringLiteral("face"), QStringLiteral("speech"),
                       QStringLiteral("touch"), QStringLiteral("request")});
    if (!values.mistake().isEmpty())
        return values.mistake();
    SimulatedInteractionService *service = target.core->devices().interaction.data();
    if (reason)
        service->startFor(static_cast<Interaction::Reason>(*reason));
    else
        service->stop();
    return {};
}

QString pace(const ActionTarget &target, ActionValues &values, QJsonObject &)
{
    const auto speed = values.factor(QStringLiteral("speed"), 0.01, 10000);
    if (!values.mistake().isEmpty())
        return values.mistake();
    target.core->pace().setSpeed(speed.value_or(1)); // clazy:exclude=writing-to-temporary
    return {};
}

QString tell(const ActionTarget &target, ActionValues &values, QJsonObject &)
{
    const QString topic = values.neededText(QStringLiteral("topic"));
    const auto attributes = values.object(QStringLiteral("attributes"));
    if (!values.mistake().isEmpty())
        return values.mistake();
    if (!panorel::PanorelMessageHandler::topics().contains(topic))
        return QStringLiteral(
                   "\"%1\" is no topic that reaches the page; docs/protocol.md lists them.")
            .arg(topic);
    target.brocker->publish(
        panorel::Message(topic, attributes.value_or(QJsonObject()).toVariantMap()));
    return {};
}

} // namespace actions

} // namespace simulator
