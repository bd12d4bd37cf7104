#include "panorel/handlers/InteractionHandler.h"

#include "panorel/Constants.h"
#include "panorel/Logging.h"
#include "panorel/MessageQueueBrocker.h"

#include "host/IInteractionService.h"
#include "host/PluginInterface.h"

namespace panorel {

InteractionHandler::InteractionHandler(PluginInterface *plugin, MessageQueueBrocker *brocker)
    : m_plugin(plugin)
    , m_brocker(brocker)
{
    qRegisterMetaType<Interaction::Reason>();

    const auto service = m_plugin ? m_plugin->interactionService() : nullptr;
    if (!service)
        return;
    connect(service.data(), &IInteractionService::started, this,
            [this](Interaction::Reason reason) {
                publishState({{QStringLiteral("state"), QStringLiteral("Interaction")},
                              {QStringLiteral("Reason"), static_cast<int>(reason)}});
            });
    connect(service.data(), &IInteractionService::finished, this, [this] {
        publishState({{QStringLiteral("state"), QStringLiteral("NonInteraction")}});
    });
}

QString InteractionHandler::topic() const { return constants::INTERACTION_CONTROL; }

void InteractionHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "InteractionHandler" << message.toJson();

    const QString state = message.attributes().value(QStringLiteral("state")).toString();
    const auto service = m_plugin ? m_plugin->interactionService() : nullptr;
    if (!service)
        return; // nobody to interact: dropped

    if (state == QLatin1String("Start"))
        service->start();
    else if (state == QLatin1String("Stop"))
        service->stop();
}

void InteractionHandler::publishState(const QVariantMap &attributes)
{
    if (isRetired())
        return; // the successor tells the page
    m_brocker->publish(Message(constants::INTERACTION_STATE, attributes));
}

} // namespace panorel
