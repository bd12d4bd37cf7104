#include "panorel/handlers/AbortRobotReplicHandler.h"

#include "panorel/Constants.h"
#include "panorel/Logging.h"
#include "panorel/ReplicContext.h"

#include "host/PluginInterface.h"

namespace panorel {

AbortRobotReplicHandler::AbortRobotReplicHandler(ReplicContext *context, PluginInterface *plugin)
    : m_context(context)
    , m_plugin(plugin)
{ }

QString AbortRobotReplicHandler::topic() const { return constants::ABORT_ROBOT_REPLIC; }

void AbortRobotReplicHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "AbortRobotReplicHandler" << message.toJson();

    if (m_plugin)
        Q_EMIT m_plugin->signalTTSCancel();
    m_context->clear();
}

} // namespace panorel
