#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

#include <QObject>
#include <QVariantMap>

class QJsonObject;
class QUuid;
class SIPMaster;

namespace panorel {

class MessageQueueBrocker;

/// Places telephone calls for the page, and tells it how they go.
class PANOREL_EXPORT SIPControlHandler : public QObject, public MessageHandler
{
    Q_OBJECT

public:
    /// Makes the telephone client, which lives and dies with the handler. @p brocker is not owned.
    explicit SIPControlHandler(MessageQueueBrocker *brocker);

    /// "sip.control".
    QString topic() const;

    /// Does what is present, in this order:
    /// - "call_start": object with "number" (text); answered by "sip.call.response" with "result",
    ///   whether the call was started;
    /// - "play_file": object with "number" and "file" (texts) and "recall_count" (number, default
    ///   1); answered by "sip.file.response" with "uuid", the queued call's, null when there is none;
    /// - "play_text": the same with "text" instead of "file"; answered by "sip.text.response";
    /// - "clear_queue" drops the queued calls; "call_stop" hangs up. Neither is answered.
    ///
    /// The client's notifications come as "sip.events" with "event": "hidden_call" ("uuid",
    /// "success"), "public_call" ("state": integer, CallState) or "tone" ("tone": integer).
    void handle(Message message) override;

private:
    void followEvents();
    bool startCall(const QJsonObject &parameters);
    QUuid playFile(const QJsonObject &parameters);
    QUuid playText(const QJsonObject &parameters);
    void reply(const QString &topic, const QString &key, const QVariant &value);
    void publishEvent(const QVariantMap &attributes);

    MessageQueueBrocker *m_brocker;
    SIPMaster *m_sip;
};

} // namespace panorel
