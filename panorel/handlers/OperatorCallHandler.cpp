#include "panorel/handlers/OperatorCallHandler.h"

#include "panorel/Constants.h"
#include "panorel/Logging.h"

#include "host/PluginInterface.h"

namespace panorel {

OperatorCallHandler::OperatorCallHandler(PluginInterface *plugin)
    : m_plugin(plugin)
{ }

QString OperatorCallHandler::topic() const { return constants::OPERATOR_CALL_REQUEST; }

void OperatorCallHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "OperatorCallHandler" << message.toJson();

    if (!m_plugin)
        return; // no robot behind the page: dropped

    const QVariantMap attributes = message.attributes();
    const auto call = attributes.constFind(QStringLiteral("call"));
    if (call != attributes.constEnd())
        Q_EMIT m_plugin->signalOperatorCall(call->toBool());
}

} // namespace panorel
