#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"
#include "panorel/PrinterStatus.h"

#include <QObject>
#include <QSharedPointer>

class IPrinter;
class PluginInterface;

namespace panorel {

class MessageQueueBrocker;

/// Prints a picture of the page.
class PANOREL_EXPORT PrintHandler : public QObject, public MessageHandler
{
    Q_OBJECT

public:
    /// Keeps to the printer that @p plugin has now. Nothing is owned.
    PrintHandler(PluginInterface *plugin, MessageQueueBrocker *brocker);

    /// "printer.print".
    QString topic() const;

    /// "data": a PNG picture as base64, with or without "data:image/png;base64," before it;
    /// "ignore_not_connected": true prints without asking whether the printer is connected.
    ///
    /// Writes paths::printPicture() and prints it. Answers, without attributes, "printer.success",
    /// "printer.error", "printer.nopaper" or "printer.noprinter"; before the first two of these
    /// "printer.paper.low" when paper is low. While the printer reports an error of code 0 there is
    /// no answer at all.
    void handle(Message message) override;

private:
    void reply(const QString &topic);

    MessageQueueBrocker *m_brocker;
    PrinterStatus m_status; // outlives the printer, which may signal while it goes
    QSharedPointer<IPrinter> m_printer;
};

} // namespace panorel
