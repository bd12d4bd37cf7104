#include "panorel/handlers/UserDatabaseHandler.h"

#include "panorel/Attributes.h"
#include "panorel/Constants.h"
#include "panorel/Logging.h"
#include "panorel/MessageQueueBrocker.h"

#include "host/IUsersDatabase.h"
#include "host/PluginInterface.h"
#include "host/UserData.h"

#include <QDateTime>

namespace panorel {

namespace {

/// The face type of the database's people.
constexpr auto personType = static_cast<FaceInfo::Type>(2);

} // namespace

UserDatabaseHandler::UserDatabaseHandler(PluginInterface *plugin, MessageQueueBrocker *brocker)
    : m_plugin(plugin)
    , m_brocker(brocker)
{ }

QString UserDatabaseHandler::topic() const { return constants::DATABASE_USER_REQUEST; }

void UserDatabaseHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "UserDatabaseHandler" << message.toJson();

    const QVariantMap attributes = message.attributes();
    QVariantMap response;
    const auto get = attributes.constFind(QStringLiteral("get_user"));
    if (get != attributes.constEnd())
        response.insert(get.key(), getUser(*get));
    const auto add = attributes.constFind(QStringLiteral("add_user"));
    if (add != attributes.constEnd())
        response.insert(add.key(), addUser(add->toMap()));
    const auto remove = attributes.constFind(QStringLiteral("del_user"));
    if (remove != attributes.constEnd())
        response.insert(remove.key(), deleteUser(*remove));

    m_brocker->publish(
        Message(constants::DATABASE_USER_RESPONSE, {{QStringLiteral("response"), response}}));
}

QVariant UserDatabaseHandler::getUser(const QVariant &id) const
{
    UserData user;
    const auto users = database();
    if (!users || !users->user(toInt64(id), user))
        return false;
    return user.toJson().toVariantMap();
}

bool UserDatabaseHandler::addUser(const QVariantMap &person) const
{
    FaceInfo face;
    face.setType(personType);
    face.setId(toInt64(person.value(QStringLiteral("id"))));
    face.setAge(person.value(QStringLiteral("age")).toDouble());
    face.setGender(static_cast<Gender>(toInt32(person.value(QStringLiteral("gender")))));

    UserData user;
    user.setInfo(face);
    user.setName(person.value(QStringLiteral("name")).toString());
    user.setExtraData(person.value(QStringLiteral("extra_data")));
    user.setAcquaintanceDate(QDateTime::currentDateTime());
    user.setLastVisit(QDateTime::currentDateTime());

    const auto users = database();
    return users && users->addUser(user);
}

bool UserDatabaseHandler::deleteUser(const QVariant &id) const
{
    const auto users = database();
    return users && users->deleteUser(toInt64(id), personType);
}

QSharedPointer<IUsersDatabase> UserDatabaseHandler::database() const
{
    return m_plugin ? m_plugin->databaseUsers() : QSharedPointer<IUsersDatabase>();
}

} // namespace panorel
