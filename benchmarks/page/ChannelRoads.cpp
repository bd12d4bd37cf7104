#include "benchmarks/page/ChannelRoads.h"

#include "benchmarks/page/Topics.h"
#include "panorel/Constants.h"
#include "panorel/MessageQueueBrocker.h"

#include <QUrl>

using panorel::constants::CUSTOM_EVENT_CORE;

namespace {

const QString bridgeName = QStringLiteral("_karvel_internal");
const QString channelQuery = QStringLiteral("road=channel");

class NaiveFunction : public naive::Handler
{
public:
    explicit NaiveFunction(std::function<void(const naive::Message &)> function)
        : m_function(std::move(function))
    { }

    void handle(naive::Message message) override { m_function(message); }

private:
    const std::function<void(const naive::Message &)> m_function;
};

naive::Message naiveMessage(const QJsonObject &json)
{
    QVariantMap attributes = json.toVariantMap();
    const QString type = attributes.take(QStringLiteral("type")).toString();
    return naive::Message(type, attributes);
}

} // namespace

RawRoad::RawRoad()
    : Road(channelQuery)
{
    m_bridge.receive = [this](const QJsonObject &request) {
        if (request.value(QStringLiteral("type")).toString() == topics::done)
            setDone();
        else
            Q_EMIT m_bridge.message(echoEnvelope(request));
    };
    m_channel.registerObject(bridgeName, &m_bridge);
    m_view.page()->setWebChannel(&m_channel);
}

void RawRoad::prepare(const QString &text) { m_event = eventEnvelope(text); }

void RawRoad::send() { Q_EMIT m_bridge.message(m_event); }

void RawRoad::send(const QJsonObject &envelope) { Q_EMIT m_bridge.message(envelope); }

QWebEngineView *RawRoad::load(const QUrl &url)
{
    m_view.load(url);
    return &m_view;
}

NaiveRoad::NaiveRoad()
    : Road(channelQuery)
{
    const auto subscribe = [this](const QString &topic, auto function) {
        m_handlers.push_back(std::make_unique<NaiveFunction>(function));
        m_bus.subscribe(topic, m_handlers.back().get());
    };
    subscribe(topics::done, [this](const naive::Message &) { setDone(); });
    subscribe(topics::echo, [this](const naive::Message &message) {
        m_bus.publish(naive::Message(CUSTOM_EVENT_CORE, message.attributes()));
    });
    const auto forward = [this](const naive::Message &message) {
        Q_EMIT m_bridge.message(message.toJson());
    };
    subscribe(CUSTOM_EVENT_CORE, forward);
    subscribe(panorel::constants::FACE_RECOGNIZE_INFO, forward);
    m_bridge.receive = [this](const QJsonObject &json) { m_bus.publish(naiveMessage(json)); };
    m_channel.registerObject(bridgeName, &m_bridge);
    m_view.page()->setWebChannel(&m_channel);
}

NaiveRoad::~NaiveRoad() = default;

void NaiveRoad::prepare(const QString &text) { m_text = text; }

void NaiveRoad::send()
{
    m_bus.publish(naive::Message(CUSTOM_EVENT_CORE, {{QStringLiteral("text"), m_text}}));
}

void NaiveRoad::publish(const naive::Message &message) { m_bus.publish(message); }

QWebEngineView *NaiveRoad::load(const QUrl &url)
{
    m_view.load(url);
    return &m_view;
}

PanorelRoad::PanorelRoad()
    : Road(channelQuery)
{
    m_screen.defaultHandlers(m_robot.plugin(), m_robot.dialog());
    m_screen.registerEventHandler(topics::done, [this](const panorel::Message &) { setDone(); });
    m_screen.registerEventHandler(topics::echo, [this](const panorel::Message &message) {
        m_screen.brocker()->publish(panorel::Message(CUSTOM_EVENT_CORE, message.attributes()));
    });
}

void PanorelRoad::prepare(const QString &text) { m_text = text; }

void PanorelRoad::send() { m_screen.customEvent({{QStringLiteral("text"), m_text}}); }

QWebEngineView *PanorelRoad::load(const QUrl &url)
{
    m_screen.load(url.toString());
    return m_screen.findChild<QWebEngineView *>();
}
