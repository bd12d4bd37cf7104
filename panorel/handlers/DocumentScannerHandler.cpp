#include "panorel/handlers/DocumentScannerHandler.h"

#include "panorel/Attributes.h"
#include "panorel/Constants.h"
#include "panorel/Logging.h"

#include "host/IScanner.h"

namespace panorel {

DocumentScannerHandler::DocumentScannerHandler(PluginInterface *plugin,
                                               MessageQueueBrocker *brocker)
    : ScannerHandler(plugin, brocker, Device::DocumentScanner,
                     {constants::SCANNER_DOCUMENT_RESPONSE, constants::SCANNER_DOCUMENT_ERROR,
                      constants::SCANNER_DOCUMENT_STATE, constants::SCANNER_DOCUMENT_FINISH})
{
    if (!scanner())
        return;
    connect(scanner(), &IScanner::signalProgress, this, [this](const double &progress) {
        publishSignal(constants::SCANNER_DOCUMENT_PROGRESS,
                      {{QStringLiteral("progress"), QString::number(progress)}});
    });
}

QString DocumentScannerHandler::topic() const { return constants::SCANNER_DOCUMENT_REQUEST; }

void DocumentScannerHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "DocumentScannerHandler" << message.toJson();

    const QVariantMap attributes = message.attributes();
    applySettings(attributes);
    scan(attributes);
}

void DocumentScannerHandler::applySettings(const QVariantMap &attributes)
{
    if (!scanner())
        return; // nothing to set: dropped, the answer tells
    const auto end = attributes.constEnd();
    const auto mode = attributes.constFind(QStringLiteral("mode"));
    if (mode != end)
        scanner()->setMode(static_cast<quint8>(toInt32(*mode)));
    const auto brightness = attributes.constFind(QStringLiteral("brightness"));
    if (brightness != end)
        scanner()->setBrightness(static_cast<quint8>(toInt32(*brightness)));
    const auto resolution = attributes.constFind(QStringLiteral("resolution"));
    if (resolution != end)
        scanner()->setResolution(static_cast<quint16>(toInt32(*resolution)));
}

} // namespace panorel
