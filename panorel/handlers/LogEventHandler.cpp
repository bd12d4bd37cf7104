#include "panorel/handlers/LogEventHandler.h"

#include "panorel/Constants.h"
#include "panorel/Logging.h"

namespace panorel {

QString LogEventHandler::topic() const { return constants::LOG; }

void LogEventHandler::handle(Message message)
{
    const QVariantMap attributes = message.attributes();
    const QString level = attributes.value(QStringLiteral("level")).toString().toLower();
    const QString text = attributes.value(QStringLiteral("message")).toString();

    // Streamed as a QString, the text is quoted and escaped: a page cannot forge a line of the log.
    if (level == QLatin1String("debug"))
        qCDebug(lcPanorel) << text;
    else if (level == QLatin1String("info"))
        qCInfo(lcPanorel) << text;
    else if (level == QLatin1String("warning"))
        qCWarning(lcPanorel) << text;
    else if (level == QLatin1String("critical"))
        qCCritical(lcPanorel) << text;
}

} // namespace panorel
