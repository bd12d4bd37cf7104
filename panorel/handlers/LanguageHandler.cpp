#include "panorel/handlers/LanguageHandler.h"

#include "panorel/Constants.h"
#include "panorel/Logging.h"

#include "host/PluginInterface.h"

namespace panorel {

LanguageHandler::LanguageHandler(PluginInterface *plugin)
    : m_plugin(plugin)
{ }

QString LanguageHandler::topic() const { return constants::SET_LANGUAGE; }

void LanguageHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "LanguageHandler" << message.toJson();

    if (!m_plugin)
        return; // no robot behind the page: dropped

    const QVariantMap attributes = message.attributes();
    const auto language = attributes.constFind(QStringLiteral("language"));
    if (language != attributes.constEnd())
        Q_EMIT m_plugin->signalLanguage(language->toString());
}

} // namespace panorel
