#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

#include <QStringList>

namespace panorel {

class PanorelProxy;

/// Forwards every message meant for the page to the page, as JSON.
class PANOREL_EXPORT PanorelMessageHandler : public MessageHandler
{
public:
    /// Subscribes itself to each of topics() on the proxy's broker, which then owns it. @p proxy is
    /// not owned and outlives the broker's handlers.
    explicit PanorelMessageHandler(PanorelProxy *proxy);

    void handle(Message message) override;

    /// The 65 topics that reach the page, in the order of their subscription.
    static const QStringList &topics();

private:
    PanorelProxy *m_proxy;
};

} // namespace panorel
