#include "panorel/handlers/GetReplicHandler.h"

#include "panorel/Attributes.h"
#include "panorel/Constants.h"
#include "panorel/Logging.h"
#include "panorel/MessageQueueBrocker.h"
#include "panorel/RecordConversion.h"
#include "panorel/ReplicContext.h"

namespace panorel {

GetReplicHandler::GetReplicHandler(ReplicContext *context, MessageQueueBrocker *brocker)
    : m_context(context)
    , m_brocker(brocker)
{ }

QString GetReplicHandler::topic() const { return constants::GET_REPLICA; }

void GetReplicHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "GetReplicHandler" << message.toJson();

    const QVariantMap attributes = message.attributes();
    const QVariant category = readCategory(attributes);
    const bool useGeneral = boolAttribute(attributes, QStringLiteral("use_general"), true);
    const bool useBiometry = boolAttribute(attributes, QStringLiteral("use_biometry"), true);
    const FaceInfo face = readFaceAttribute(attributes);
    const auto step = attributes.constFind(QStringLiteral("step"));
    const auto type = attributes.constFind(QStringLiteral("replica_type"));

    QSharedPointer<Replica> replica;
    if (step != attributes.constEnd()) {
        replica =
            m_context->getAppReplic(step->toString(), category, useGeneral, useBiometry, face);
    } else if (type != attributes.constEnd()) {
        replica = m_context->getReplic(static_cast<Replica::Type>(toInt32(*type)), category,
                                       useGeneral, useBiometry, face);
    }
    if (!replica) {
        qCDebug(lcPanorel) << "NO REPLIC";
        return; // there is no error reply: the page waits with a time limit of its own
    }
    m_brocker->publish(
        Message(constants::LOAD_REPLICA, {{QStringLiteral("replica"), toMap(*replica)}}));
}

} // namespace panorel
