#include "panorel/handlers/GetEnvironmentHandler.h"

#include "panorel/Constants.h"
#include "panorel/Logging.h"
#include "panorel/MessageQueueBrocker.h"

#include "host/RobotInfo.h"
#include "host/karvel.h"

namespace panorel {

GetEnvironmentHandler::GetEnvironmentHandler(MessageQueueBrocker *brocker)
    : m_brocker(brocker)
{ }

QString GetEnvironmentHandler::topic() const { return constants::GET_ENVIRONMENT; }

void GetEnvironmentHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "GetEnvironmentHandler" << message.toJson();

    QVariantMap environment;
    environment.insert(QStringLiteral("uuid_robot"), RobotInfo::uuidRobot());
    environment.insert(QStringLiteral("uuid_owner"), RobotInfo::uuidOwner());
    environment.insert(QStringLiteral("name"), RobotInfo::name());
    environment.insert(QStringLiteral("id"), karvel::exec(QStringLiteral("uname -n")));
    environment.insert(QStringLiteral("date_of_creation"),
                       RobotInfo::dateOfCreation().toString(Qt::ISODate));
    m_brocker->publish(
        Message(constants::LOAD_ENVIRONMENT, {{QStringLiteral("environment"), environment}}));
}

} // namespace panorel
