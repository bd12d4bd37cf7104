#include "panorel/handlers/PassportScannerHandler.h"

#include "panorel/Constants.h"
#include "panorel/Logging.h"

namespace panorel {

PassportScannerHandler::PassportScannerHandler(PluginInterface *plugin,
                                               MessageQueueBrocker *brocker)
    : ScannerHandler(plugin, brocker, Device::PassportScanner,
                     {constants::SCANNER_PASSPORT_RESPONSE, constants::SCANNER_PASSPORT_ERROR,
                      constants::SCANNER_PASSPORT_STATE, constants::SCANNER_PASSPORT_FINISH})
{ }

QString PassportScannerHandler::topic() const { return constants::SCANNER_PASSPORT_REQUEST; }

void PassportScannerHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "PassportScannerHandler" << message.toJson();

    scan(message.attributes());
}

} // namespace panorel
