#include "panorel/handlers/PlayExternalHandler.h"

#include "panorel/Attributes.h"
#include "panorel/Constants.h"
#include "panorel/Logging.h"
#include "panorel/MessageQueueBrocker.h"

#include <QMediaContent>
#include <QMediaPlayer>
#include <QUrl>

namespace panorel {

namespace {

constexpr int defaultVolume = 60;

QVariantMap statusNamed(const QString &name) { return {{QStringLiteral("status"), name}}; }

} // namespace

PlayExternalHandler::PlayExternalHandler(MessageQueueBrocker *brocker)
    : m_brocker(brocker)
    , m_player(new QMediaPlayer(this))
{
    qRegisterMetaType<QMediaPlayer::State>();
    qRegisterMetaType<QMediaPlayer::MediaStatus>();
    qRegisterMetaType<QMediaPlayer::Error>();
    followPlayer();
}

QString PlayExternalHandler::topic() const { return constants::PLAY_EXTERNAL; }

void PlayExternalHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "PlayExternalHandler" << message.toJson();

    const QVariantMap attributes = message.attributes();
    if (attributes.contains(QStringLiteral("url")))
        play(attributes);
    if (attributes.contains(QStringLiteral("stop")))
        m_player->stop();
}

void PlayExternalHandler::play(const QVariantMap &attributes)
{
    const QUrl url(attributes.value(QStringLiteral("url")).toString(), QUrl::TolerantMode);
    m_player->setMedia(QMediaContent(url));
    m_player->setVolume(toInt32(attributes.value(QStringLiteral("volume"), defaultVolume)));
    m_player->play();
}

// The paused state and all other statuses say nothing to the page.
void PlayExternalHandler::followPlayer()
{
    connect(m_player, &QMediaPlayer::stateChanged, this, [this](QMediaPlayer::State state) {
        if (state == QMediaPlayer::PlayingState)
            publishStatus(statusNamed(QStringLiteral("PlayingState")));
        else if (state == QMediaPlayer::StoppedState)
            publishStatus(statusNamed(QStringLiteral("StoppedState")));
    });
    connect(m_player, &QMediaPlayer::mediaStatusChanged, this,
            [this](QMediaPlayer::MediaStatus status) {
                if (status == QMediaPlayer::EndOfMedia)
                    publishStatus(statusNamed(QStringLiteral("EndOfMedia")));
            });
    connect(m_player, QOverload<QMediaPlayer::Error>::of(&QMediaPlayer::error), this,
            [this](QMediaPlayer::Error error) {
                qCDebug(lcPanorel) << error << m_player->errorString();
                publishError(error);
            });
}

void PlayExternalHandler::publishError(int error)
{
    QVariantMap status = statusNamed(QStringLiteral("error"));
    status.insert(QStringLiteral("error"), error);
    status.insert(QStringLiteral("error_description"), m_player->errorString());
    publishStatus(status);
}

void PlayExternalHandler::publishStatus(const QVariantMap &attributes)
{
    if (isRetired())
        return; // the page plays through the successor
    m_brocker->publish(Message(constants::PLAY_STATUS, attributes));
}

} // namespace panorel
