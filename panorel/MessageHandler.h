#pragma once

#include "panorel/Export.h"
#include "panorel/Message.h"

namespace panorel {

/// Something that acts on messages. Subscribed to a broker, which then owns it in the sense of
/// MessageQueueBrocker::clear(). Runs on the GUI thread only.
class PANOREL_EXPORT MessageHandler
{
public:
    MessageHandler() = default;
    virtual ~MessageHandler();

    /// Acts on @p message before returning. Must not throw. May publish, subscribe, unsubscribe
    /// and clear the broker.
    virtual void handle(Message message) = 0;

protected:
    /// Whether the broker was cleared and this handler only waits for its deletion. A handler that
    /// acts on signals of the host stays silent then: its successor may stand already.
    bool isRetired() const;

private:
    friend class PanorelQueueBrocker;
    Q_DISABLE_COPY(MessageHandler)

    bool m_retired = false;
};

} // namespace panorel
