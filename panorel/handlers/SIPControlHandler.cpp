#include "panorel/handlers/SIPControlHandler.h"

#include "panorel/Attributes.h"
#include "panorel/Constants.h"
#include "panorel/Logging.h"
#include "panorel/MessageQueueBrocker.h"

#include "host/SIPMaster.h"

#include <QJsonObject>

namespace panorel {

namespace {

constexpr int defaultRecallCount = 1;

bool hasText(const QJsonObject &parameters, const QString &key)
{
    return parameters.value(key).isString();
}

QString text(const QJsonObject &parameters, const QString &key)
{
    return parameters.value(key).toString();
}

int recallCount(const QJsonObject &parameters)
{
    const QJsonValue count = parameters.value(QStringLiteral("recall_count"));
    return count.isDouble() ? count.toInt() : defaultRecallCount;
}

} // namespace

SIPControlHandler::SIPControlHandler(MessageQueueBrocker *brocker)
    : m_brocker(brocker)
    , m_sip(new SIPMaster(this))
{
    qRegisterMetaType<CallState>();
    followEvents();
}

QString SIPControlHandler::topic() const { return constants::SIP_CONTROL; }

void SIPControlHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "SIPControlHandler" << message.toJson();

    const QVariantMap attributes = message.attributes();
    const QString callStart = QStringLiteral("call_start");
    if (attributes.contains(callStart))
        reply(constants::SIP_CALL_RESPONSE, QStringLiteral("result"),
              startCall(objectAttribute(attributes, callStart)));
    const QString playFileKey = QStringLiteral("play_file");
    if (attributes.contains(playFileKey))
        reply(constants::SIP_FILE_RESPONSE, QStringLiteral("uuid"),
              playFile(objectAttribute(attributes, playFileKey)));
    const QString playTextKey = QStringLiteral("play_text");
    if (attributes.contains(playTextKey))
        reply(constants::SIP_TEXT_RESPONSE, QStringLiteral("uuid"),
              playText(objectAttribute(attributes, playTextKey)));
    if (attributes.contains(QStringLiteral("clear_queue")))
        m_sip->clearQueue();
    if (attributes.contains(QStringLiteral("call_stop")))
        m_sip->stopCall();
}

void SIPControlHandler::followEvents()
{
    const QString event = QStringLiteral("event");
    connect(m_sip, &SIPMaster::signalHiddenCallResult, this,
            [this, event](const QUuid &id, const bool &success) {
                publishEvent({{event, QStringLiteral("hidden_call")},
                              {QStringLiteral("uuid"), id},
                              {QStringLiteral("success"), success}});
            });
    connect(m_sip, &SIPMaster::signalPublicCallState, this, [this, event](const CallState &state) {
        publishEvent({{event, QStringLiteral("public_call")},
                      {QStringLiteral("state"), static_cast<int>(state)}});
    });
    connect(m_sip, &SIPMaster::signalTone, this, [this, event](const int &tone) {
        publishEvent({{event, QStringLiteral("tone")}, {QStringLiteral("tone"), tone}});
    });
}

bool SIPControlHandler::startCall(const QJsonObject &parameters)
{
    qDebug() << "call_start_map" << parameters;

    const QString number = QStringLiteral("number");
    return hasText(parameters, number) && m_sip->callToNumber(text(parameters, number));
}

QUuid SIPControlHandler::playFile(const QJsonObject &parameters)
{
    qDebug() << "play_file_map" << parameters;

    const QString number = QStringLiteral("number");
    const QString file = QStringLiteral("file");
    if (!hasText(parameters, number) || !hasText(parameters, file))
        return {};
    return m_sip->playFileToNumber(text(parameters, file), text(parameters, number),
                                   recallCount(parameters));
}

QUuid SIPControlHandler::playText(const QJsonObject &parameters)
{
    qDebug() << "play_text_map" << parameters;

    const QString number = QStringLiteral("number");
    const QString spoken = QStringLiteral("text");
    if (!hasText(parameters, number) || !hasText(parameters, spoken))
        return {};
    return m_sip->playTextToNumber(text(parameters, spoken), text(parameters, number),
                                   recallCount(parameters));
}

void SIPControlHandler::reply(const QString &topic, const QString &key, const QVariant &value)
{
    m_brocker->publish(Message(topic, {{key, value}}));
}

void SIPControlHandler::publishEvent(const QVariantMap &attributes)
{
    if (isRetired())
        return; // the page calls through the successor
    m_brocker->publish(Message(constants::SIP_EVENTS, attributes));
}

} // namespace panorel
