#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

#include <QObject>
#include <QVariantMap>

class QMediaPlayer;

namespace panorel {

class MessageQueueBrocker;

/// Plays sounds and other media for the page, one at a time.
class PANOREL_EXPORT PlayExternalHandler : public QObject, public MessageHandler
{
    Q_OBJECT

public:
    /// @p brocker is not owned.
    explicit PlayExternalHandler(MessageQueueBrocker *brocker);

    /// "system.play.external".
    QString topic() const;

    /// "url": plays it instead of what was playing, parsed tolerantly, with "volume" (integer, 0 to
    /// 100; default 60). Then "stop": stops.
    ///
    /// What the player does is told by "system.play.status" with "status": "PlayingState",
    /// "StoppedState", "EndOfMedia", or "error" with "error" (integer, QMediaPlayer::Error) and
    /// "error_description".
    void handle(Message message) override;

private:
    void followPlayer();
    void play(const QVariantMap &attributes);
    void publishError(int error);
    void publishStatus(const QVariantMap &attributes);

    MessageQueueBrocker *m_brocker;
    QMediaPlayer *m_player;
};

} // namespace panorel
