#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

namespace panorel {

/// Writes a line of the page into the library's log. Never replies.
class PANOREL_EXPORT LogEventHandler : public MessageHandler
{
public:
    LogEventHandler() = default;

    /// "system.log".
    QString topic() const;

    /// "level": "debug", "info", "warning" or "critical" in any letter case, otherwise nothing is
    /// written; "message": the text.
    void handle(Message message) override;
};

} // namespace panorel
