#include "panorel/handlers/PrintStateHandler.h"

#include "panorel/Attributes.h"
#include "panorel/Constants.h"
#include "panorel/MessageQueueBrocker.h"

#include "host/IPrinter.h"
#include "host/PluginInterface.h"

namespace panorel {

namespace {

QVariantMap stateNamed(const QString &name) { return {{QStringLiteral("state"), name}}; }

} // namespace

PrintStateHandler::PrintStateHandler(PluginInterface *plugin, MessageQueueBrocker *brocker)
    : m_brocker(brocker)
    , m_printer(plugin ? plugin->printer(Device::Printer) : nullptr)
{
    m_status.follow(m_printer.data(), this);
}

QString PrintStateHandler::topic() const { return constants::PRINT_STATE; }

void PrintStateHandler::handle(Message message)
{
    const QVariantMap state = describe(
        boolAttribute(message.attributes(), QStringLiteral("ignore_not_connected"), false));
    if (state.isEmpty())
        return; // a state that the page has no name for: no answer
    m_brocker->publish(Message(constants::PRINT_STATE_INFO, state));
}

bool PrintStateHandler::isConnected() const { return m_printer && m_printer->isConnected(); }

QVariantMap PrintStateHandler::describe(bool ignoreNotConnected) const
{
    switch (m_status.state) {
    case PrinterState::Idle:
        return stateNamed(ignoreNotConnected || isConnected() ? QStringLiteral("IDLE")
                                                              : QStringLiteral("NOT_CONNECTED"));
    case PrinterState::InProcess:
        return stateNamed(QStringLiteral("IN_PROCESS"));
    case PrinterState::Error:
        return describeError();
    case PrinterState::NotConnected:
        return stateNamed(QStringLiteral("NOT_CONNECTED"));
    }
    return {};
}

QVariantMap PrintStateHandler::describeError() const
{
    QString name = QStringLiteral("ERROR");
    if (m_status.errorCode == PrinterStatus::NoPaper)
        name = QStringLiteral("NO_PAPER");
    else if (m_status.errorCode == PrinterStatus::LowPaper)
        name = QStringLiteral("LOW_PAPER");

    QVariantMap state = stateNamed(name);
    state.insert(QStringLiteral("error_code"), m_status.errorCode);
    state.insert(QStringLiteral("error_message"), m_status.errorMessage);
    return state;
}

} // namespace panorel
