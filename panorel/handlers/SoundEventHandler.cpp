#include "panorel/handlers/SoundEventHandler.h"

#include "panorel/Attributes.h"
#include "panorel/Constants.h"
#include "panorel/Logging.h"
#include "panorel/MessageQueueBrocker.h"

#include "host/karvel.h"

namespace panorel {

SoundEventHandler::SoundEventHandler(MessageQueueBrocker *brocker)
    : m_brocker(brocker)
{ }

QString SoundEventHandler::topic() const { return constants::SOUND_PROPERTIES; }

void SoundEventHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "SoundEventHandler" << message.toJson();

    // Each level is read before it is set, so that a page learns what it changed.
    const QVariantMap attributes = message.attributes();
    QVariantMap sound;
    if (attributes.contains(QStringLiteral("get_volume")))
        sound.insert(QStringLiteral("volume"), karvel::getSoundVolume());
    const auto volume = attributes.constFind(QStringLiteral("set_volume"));
    if (volume != attributes.constEnd())
        karvel::setSoundVolume(toInt32(*volume));
    if (attributes.contains(QStringLiteral("get_mic")))
        sound.insert(QStringLiteral("mic"), karvel::getMicVolume());
    const auto microphone = attributes.constFind(QStringLiteral("set_mic"));
    if (microphone != attributes.constEnd())
        karvel::setMicVolume(toInt32(*microphone));

    if (sound.isEmpty())
        return; // nothing was asked
    m_brocker->publish(Message(constants::SOUND_LOAD, {{QStringLiteral("sound"), sound}}));
}

} // namespace panorel
