#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

#include <QObject>
#include <QSharedPointer>

class IDispenser;
class PluginInterface;

namespace panorel {

class MessageQueueBrocker;

/// Hands out cards, and tells the page each bit of the dispenser's status word.
class PANOREL_EXPORT DispenserHandler : public QObject, public MessageHandler
{
    Q_OBJECT

public:
    /// Follows the card dispenser that @p plugin has now. Nothing is owned.
    DispenserHandler(PluginInterface *plugin, MessageQueueBrocker *brocker);

    /// "dispenser.dispense".
    QString topic() const;

    /// Issues a card. "ignore_not_connected": true does so without asking whether the dispenser is
    /// connected. Answered only by "dispenser.nodispenser" or "dispenser.not.connected", without
    /// attributes; what becomes of the card comes as status.
    ///
    /// Each status word of the dispenser becomes one message for each thing that it says, in this
    /// order: "dispenser.not.connected", "dispenser.communication.timeout",
    /// "dispenser.card.dispensing", "dispenser.card.preempty", "dispenser.card.empty",
    /// "dispenser.cardbin.full", "dispenser.card.error", and for each sensor "dispenser.sensor"
    /// with "sensor": "DispSensor", "CaptSensor2", "CaptSensor1".
    void handle(Message message) override;

private:
    void publishStatus(unsigned short code);

    MessageQueueBrocker *m_brocker;
    QSharedPointer<IDispenser> m_dispenser;
};

} // namespace panorel
