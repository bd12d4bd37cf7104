#pragma once

#include "panorel/ScannerHandler.h"

namespace panorel {

/// Scans documents for the page.
class PANOREL_EXPORT DocumentScannerHandler : public ScannerHandler
{
    Q_OBJECT

public:
    /// Follows the document scanner that @p plugin has now. Nothing is owned.
    DocumentScannerHandler(PluginInterface *plugin, MessageQueueBrocker *brocker);

    /// "scanner.document.request".
    QString topic() const;

    /// "mode" and "brightness" (8 bits of an integer) and "resolution" (16 bits) set the scanner,
    /// each only when present and whether or not the scanner is connected. Then a scan starts:
    /// "ignore_not_connected": true starts it without asking for the connection; "timeout": seconds,
    /// default 30. Answered by "scanner.document.response" with "success".
    ///
    /// The scanner's signals become "scanner.document.error" ("code": decimal text, "text"),
    /// "scanner.document.state" ("state": integer, ScannerState), "scanner.document.progress"
    /// ("progress": text with up to 6 digits) and "scanner.document.finish" ("data": field name to
    /// text).
    void handle(Message message) override;

private:
    void applySettings(const QVariantMap &attributes);
};

} // namespace panorel
