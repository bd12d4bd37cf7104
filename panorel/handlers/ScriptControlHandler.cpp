#include "panorel/handlers/ScriptControlHandler.h"

#include "panorel/Constants.h"
#include "panorel/Logging.h"
#include "panorel/MessageQueueBrocker.h"

#include "host/PluginInterface.h"

namespace panorel {

ScriptControlHandler::ScriptControlHandler(PluginInterface *plugin, MessageQueueBrocker *brocker)
    : m_plugin(plugin)
    , m_brocker(brocker)
{ }

QString ScriptControlHandler::topic() const { return constants::SCRIPTS_CONTROL; }

void ScriptControlHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "ScriptControlHandler" << message.toJson();

    if (!m_plugin)
        return; // no robot behind the page: dropped

    const QVariantMap attributes = message.attributes();
    const auto start = attributes.constFind(QStringLiteral("start"));
    if (start != attributes.constEnd()) {
        const QStringList result = Q_EMIT m_plugin->signalScriptStart(start->toString());
        m_brocker->publish(
            Message(constants::SCRIPTS_START_RESULT, {{QStringLiteral("result"), result}}));
    }
    if (attributes.contains(QStringLiteral("stop")))
        Q_EMIT m_plugin->signalScriptCancel();
}

} // namespace panorel
