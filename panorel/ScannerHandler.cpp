#include "panorel/ScannerHandler.h"

#include "panorel/Attributes.h"
#include "panorel/MessageQueueBrocker.h"

#include "host/IScanner.h"
#include "host/PluginInterface.h"

namespace panorel {

namespace {

constexpr double defaultTimeout = 30.0;

QVariantMap toVariantMap(const QMap<QString, QString> &texts)
{
    QVariantMap map;
    for (auto text = texts.constBegin(); text != texts.constEnd(); ++text)
        map.insert(text.key(), text.value());
    return map;
}

} // namespace

ScannerHandler::ScannerHandler(PluginInterface *plugin, MessageQueueBrocker *brocker, Device device,
                               const Topics &topics)
    : m_brocker(brocker)
    , m_topics(topics)
{
    qRegisterMetaType<ScannerState>();
    if (plugin)
        m_scanner = plugin->device(device).staticCast<IScanner>();
    if (m_scanner)
        followScanner();
}

IScanner *ScannerHandler::scanner() const { return m_scanner.data(); }

void ScannerHandler::scan(const QVariantMap &attributes)
{
    m_brocker->publish(
        Message(m_topics.response, {{QStringLiteral("success"), start(attributes)}}));
}

bool ScannerHandler::start(const QVariantMap &attributes) const
{
    const bool ignoreNotConnected =
        boolAttribute(attributes, QStringLiteral("ignore_not_connected"), false);
    const double timeout = attributes.value(QStringLiteral("timeout"), defaultTimeout).toDouble();
    if (!m_scanner || (!ignoreNotConnected && !m_scanner->isConnected()))
        return false;
    return m_scanner->scan(timeout);
}

void ScannerHandler::followScanner()
{
    connect(m_scanner.data(), &IScanner::signalError, this,
            [this](const int &code, const QString &text) {
                publishSignal(m_topics.error,
                              {{QStringLiteral("code"), QString::number(code)},
                               {QStringLiteral("text"), text}});
            });
    connect(m_scanner.data(), &IScanner::signalState, this, [this](const ScannerState &state) {
        publishSignal(m_topics.state, {{QStringLiteral("state"), static_cast<int>(state)}});
    });
    connect(m_scanner.data(), &IScanner::signalFinish, this,
            [this](const QMap<QString, QString> &data) {
                publishSignal(m_topics.finish, {{QStringLiteral("data"), toVariantMap(data)}});
            });
}

void ScannerHandler::publishSignal(const QString &topic, const QVariantMap &attributes)
{
    if (isRetired())
        return; // the successor tells the page
    m_brocker->publish(Message(topic, attributes));
}

} // namespace panorel
