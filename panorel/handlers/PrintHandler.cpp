#include "panorel/handlers/PrintHandler.h"

#include "panorel/Attributes.h"
#include "panorel/Constants.h"
#include "panorel/MessageQueueBrocker.h"
#include "panorel/RobotPaths.h"

#include "host/IPrinter.h"
#include "host/PluginInterface.h"

#include <QFile>

namespace panorel {

namespace {

QByteArray decodePicture(QString data)
{
    data.remove(QStringLiteral("data:image/png;base64,"));
    return QByteArray::fromBase64(data.toLatin1());
}

/// What cannot be written is not reported: the printer gets what the file holds.
void writePicture(const QByteArray &picture)
{
    QFile file(paths::printPicture());
    // Not truncated: the end of a longer picture before stays behind the end of this one, where a
    // PNG reader does not look.
    if (file.open(QIODevice::ReadWrite))
        file.write(picture);
}

} // namespace

PrintHandler::PrintHandler(PluginInterface *plugin, MessageQueueBrocker *brocker)
    : m_brocker(brocker)
    , m_printer(plugin ? plugin->printer(Device::Printer) : nullptr)
{
    m_status.follow(m_printer.data(), this);
}

QString PrintHandler::topic() const { return constants::PRINT; }

void PrintHandler::handle(Message message)
{
    const QVariantMap attributes = message.attributes();
    writePicture(decodePicture(attributes.value(QStringLiteral("data")).toString()));

    if (!m_printer)
        return reply(constants::PRINT_NO_PRINTER);
    const bool ignoreNotConnected =
        boolAttribute(attributes, QStringLiteral("ignore_not_connected"), false);
    if (!ignoreNotConnected && !m_printer->isConnected())
        return reply(constants::PRINT_ERROR);

    if (m_status.state == PrinterState::Error) {
        if (m_status.errorCode == 0)
            return; // an error that says nothing: dropped, on purpose
        if (m_status.errorCode == PrinterStatus::NoPaper)
            return reply(constants::PRINT_NO_PAPER);
        if (m_status.errorCode != PrinterStatus::LowPaper)
            return reply(constants::PRINT_ERROR);
        reply(constants::PRINT_LOW_PAPER); // and there is still some to print on
    }

    const bool printed = m_printer->print(paths::printPicture());
    reply(printed ? constants::PRINT_SUCCESS : constants::PRINT_ERROR);
}

void PrintHandler::reply(const QString &topic) { m_brocker->publish(Message(topic)); }

} // namespace panorel
