#pragma once

#include "panorel/ScannerHandler.h"

namespace panorel {

/// Scans passports for the page.
class PANOREL_EXPORT PassportScannerHandler : public ScannerHandler
{
    Q_OBJECT

public:
    /// Follows the passport scanner that @p plugin has now. Nothing is owned.
    PassportScannerHandler(PluginInterface *plugin, MessageQueueBrocker *brocker);

    /// "scanner.passport.request".
    QString topic() const;

    /// Starts a scan. "ignore_not_connected": true starts it without asking for the connection;
    /// "timeout": seconds, default 30. Answered by "scanner.passport.response" with "success".
    ///
    /// The scanner's signals become "scanner.passport.error" ("code": decimal text, "text"),
    /// "scanner.passport.state" ("state": integer, ScannerState) and "scanner.passport.finish"
    /// ("data": field name to text). Its progress is not told.
    void handle(Message message) override;
};

} // namespace panorel
