#include "panorel/handlers/DispenserHandler.h"

#include "panorel/Attributes.h"
#include "panorel/Constants.h"
#include "panorel/Logging.h"
#include "panorel/MessageQueueBrocker.h"

#include "host/IDispenser.h"
#include "host/PluginInterface.h"

namespace panorel {

namespace {

/// The position at which the user takes the card.
constexpr int exitPosition = 4;

/// What the page is told when one of these bits is set.
struct StatusMessage
{
    int bits;
    const QString &topic;
    const char *sensor; // null unless it is about a sensor
};

// In the order in which the page is told. The sensors' numbers run against the bits: kept so.
const StatusMessage statusMessages[] = {
    {0x8000, constants::DISPENSER_NOT_CONNECTED, nullptr},
    {0x4000, constants::DISPENSER_COMMUNICATION_TIMEOUT, nullptr},
    {0x0800, constants::DISPENSER_CARD_DISPENSING, nullptr},
    {0x0010, constants::DISPENSER_CARD_PREEMPTY, nullptr},
    {0x0008, constants::DISPENSER_CARD_EMPTY, nullptr},
    {0x1000, constants::DISPENSER_CARDBIN_FULL, nullptr},
    {0x0040 | 0x0020 | 0x0200 | 0x0100, constants::DISPENSER_CARD_ERROR, nullptr},
    {0x0004, constants::DISPENSER_SENSOR, "DispSensor"},
    {0x0002, constants::DISPENSER_SENSOR, "CaptSensor2"},
    {0x0001, constants::DISPENSER_SENSOR, "CaptSensor1"},
};

QVariantMap attributesOf(const StatusMessage &message)
{
    if (!message.sensor)
        return {};
    return {{QStringLiteral("sensor"), QString::fromLatin1(message.sensor)}};
}

} // namespace

DispenserHandler::DispenserHandler(PluginInterface *plugin, MessageQueueBrocker *brocker)
    : m_brocker(brocker)
{
    if (plugin)
        m_dispenser = plugin->device(Device::CardDispenser).staticCast<IDispenser>();
    if (m_dispenser)
        connect(m_dispenser.data(), &IDispenser::statusChanged, this,
                &DispenserHandler::publishStatus);
}

QString DispenserHandler::topic() const { return constants::DISPENSE; }

void DispenserHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "DispenserHandler" << message.toJson();

    const bool ignoreNotConnected =
        boolAttribute(message.attributes(), QStringLiteral("ignore_not_connected"), false);
    if (!m_dispenser) {
        m_brocker->publish(Message(constants::DISPENSER_NO_DISPENSER));
        return;
    }
    if (!ignoreNotConnected && !m_dispenser->isConnected()) {
        m_brocker->publish(Message(constants::DISPENSER_NOT_CONNECTED));
        return;
    }

    m_dispenser->issueCard(exitPosition); // the outcome comes as status
}

void DispenserHandler::publishStatus(unsigned short code)
{
    if (isRetired())
        return; // the successor tells the page
    qDebug() << "codes" << code << IDispenser::Codes(QFlag(code));

    for (const StatusMessage &message : statusMessages)
        if ((code & message.bits) != 0)
            m_brocker->publish(Message(message.topic, attributesOf(message)));
}

} // namespace panorel
