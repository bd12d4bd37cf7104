#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

namespace panorel {

class MessageQueueBrocker;

/// Lets the page read and set the loudspeaker's volume and the microphone's level.
class PANOREL_EXPORT SoundEventHandler : public MessageHandler
{
public:
    /// @p brocker is not owned.
    explicit SoundEventHandler(MessageQueueBrocker *brocker);

    /// "system.sound.properties".
    QString topic() const;

    /// Does what is present, in this order: "get_volume", "set_volume" (integer, in the mixer's
    /// scale), "get_mic", "set_mic" (integer). What was read, which is the level before the change,
    /// is answered by one "system.sound.load" with "sound": "volume", "mic".
    void handle(Message message) override;

private:
    MessageQueueBrocker *m_brocker;
};

} // namespace panorel
