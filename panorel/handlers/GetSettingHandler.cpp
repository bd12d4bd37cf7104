#include "panorel/handlers/GetSettingHandler.h"

#include "panorel/Constants.h"
#include "panorel/Logging.h"
#include "panorel/MessageQueueBrocker.h"
#include "panorel/RecordConversion.h"

#include "host/PluginInterface.h"

namespace panorel {

GetSettingHandler::GetSettingHandler(PluginInterface *plugin, MessageQueueBrocker *brocker)
    : m_plugin(plugin)
    , m_brocker(brocker)
{ }

QString GetSettingHandler::topic() const { return constants::SETTINGS_GET; }

void GetSettingHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "GetSettingHandler" << message.toJson();

    const QVariantMap attributes = message.attributes();
    const QString group = attributes.value(QStringLiteral("group")).toString();
    const QString type = attributes.value(QStringLiteral("settings_type")).toString();
    const QString name = attributes.value(QStringLiteral("name")).toString();

    // Whatever was asked, the page gets an answer, if an empty one.
    const QVariantMap found = settings(type, group, name);
    QVariantMap reply;
    for (auto setting = found.constBegin(); setting != found.constEnd(); ++setting)
        reply.insert(randomKey(),
                     QVariantMap{{QStringLiteral("settings_type"), type},
                                 {QStringLiteral("group"), group},
                                 {QStringLiteral("name"), setting.key()},
                                 {QStringLiteral("value"), setting.value()}});
    m_brocker->publish(Message(constants::SETTINGS_LOAD, {{QStringLiteral("settings"), reply}}));
}

QVariantMap GetSettingHandler::settings(const QString &type, const QString &group,
                                        const QString &name) const
{
    const bool ofSystem = type == QLatin1String("system");
    if (!m_plugin || group.isEmpty() || (!ofSystem && type != QLatin1String("application")))
        return {};

    // A group goes by its bare name, one setting by a key with slashes.
    if (name.isEmpty())
        return ofSystem ? m_plugin->sysParameterGroup(group) : m_plugin->appParameterGroup(group);

    const QString key = QStringLiteral("/%1/%2").arg(group, name);
    const QVariant value =
        ofSystem ? m_plugin->sysParameter(key, {}) : m_plugin->appParameter(key, {});
    return value.isValid() ? QVariantMap{{name, value}} : QVariantMap();
}

} // namespace panorel
