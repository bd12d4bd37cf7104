#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

class PluginInterface;

namespace panorel {

/// Switches the robot's language. Never replies.
class PANOREL_EXPORT LanguageHandler : public MessageHandler
{
public:
    /// @p plugin is not owned.
    explicit LanguageHandler(PluginInterface *plugin);

    /// "system.language.set".
    QString topic() const;

    /// "language": the language code, passed on unchecked; without it nothing happens.
    void handle(Message message) override;

private:
    PluginInterface *m_plugin;
};

} // namespace panorel
