#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"
#include "panorel/PrinterStatus.h"

#include <QObject>
#include <QSharedPointer>
#include <QVariantMap>

class IPrinter;
class PluginInterface;

namespace panorel {

class MessageQueueBrocker;

/// Tells the page what state the printer is in.
class PANOREL_EXPORT PrintStateHandler : public QObject, public MessageHandler
{
    Q_OBJECT

public:
    /// Keeps to the printer that @p plugin has now. Nothing is owned.
    PrintStateHandler(PluginInterface *plugin, MessageQueueBrocker *brocker);

    /// "printer.state".
    QString topic() const;

    /// "ignore_not_connected": true reports an idle printer without asking whether it is connected.
    ///
    /// Answered by "printer.state.info" with "state": "IDLE", "IN_PROCESS", "NO_PAPER", "LOW_PAPER",
    /// "ERROR" or "NOT_CONNECTED"; the states of errors also with "error_code" and
    /// "error_message". A missing printer counts as not connected. No answer while the printer
    /// reports a state that is none of the known ones.
    void handle(Message message) override;

private:
    bool isConnected() const;
    QVariantMap describe(bool ignoreNotConnected) const;
    QVariantMap describeError() const;

    MessageQueueBrocker *m_brocker;
    PrinterStatus m_status; // outlives the printer, which may signal while it goes
    QSharedPointer<IPrinter> m_printer;
};

} // namespace panorel
