#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

class PluginInterface;

namespace panorel {

/// Calls a human operator, or withdraws the call. Never replies: the operator's answers come from
/// the host, through the widget.
class PANOREL_EXPORT OperatorCallHandler : public MessageHandler
{
public:
    /// @p plugin is not owned.
    explicit OperatorCallHandler(PluginInterface *plugin);

    /// "operator.call.request".
    QString topic() const;

    /// "call": true calls, false withdraws; without it nothing happens.
    void handle(Message message) override;

private:
    PluginInterface *m_plugin;
};

} // namespace panorel
