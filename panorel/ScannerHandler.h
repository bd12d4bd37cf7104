#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

#include "host/Device.h"

#include <QObject>
#include <QSharedPointer>
#include <QVariantMap>

class IScanner;
class PluginInterface;

namespace panorel {

class MessageQueueBrocker;

/// What the handlers of both scanners have in common: a request starts a scan, and what the scanner
/// then signals becomes messages.
class PANOREL_EXPORT ScannerHandler : public QObject, public MessageHandler
{
    Q_OBJECT

protected:
    /// The topics on which one scanner's page is told.
    struct Topics
    {
        QString response;
        QString error;
        QString state;
        QString finish;
    };

    /// Follows the scanner that @p plugin has now as @p device. Nothing is owned.
    ScannerHandler(PluginInterface *plugin, MessageQueueBrocker *brocker, Device device,
                   const Topics &topics);

    /// Null when the robot has no such scanner.
    IScanner *scanner() const;

    /// Starts a scan, unless the scanner is missing or not connected, and answers on the topic of
    /// responses with "success". "ignore_not_connected" (default false) and "timeout" (seconds,
    /// default 30) come from @p attributes.
    void scan(const QVariantMap &attributes);

    /// Publishes what the scanner signalled; a retired handler stays silent.
    void publishSignal(const QString &topic, const QVariantMap &attributes);

private:
    void followScanner();
    bool start(const QVariantMap &attributes) const;

    MessageQueueBrocker *m_brocker;
    Topics m_topics;
    QSharedPointer<IScanner> m_scanner;
};

} // namespace panorel
