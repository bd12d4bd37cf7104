#include "panorel/handlers/KeyboardControlHandler.h"

#include "panorel/Constants.h"
#include "panorel/Logging.h"
#include "panorel/MessageQueueBrocker.h"

#include "host/IKeyboard.h"
#include "host/PluginInterface.h"

namespace panorel {

KeyboardControlHandler::KeyboardControlHandler(PluginInterface *plugin,
                                               MessageQueueBrocker *brocker)
    : m_plugin(plugin)
    , m_brocker(brocker)
{ }

QString KeyboardControlHandler::topic() const { return constants::KEYBOARD_CONTROL_REQUEST; }

void KeyboardControlHandler::handle(Message message)
{
    qCDebug(lcPanorel) << "KeyboardControlHandler" << message.toJson();

    // The keyboard is asked for anew for each key: the host may replace or remove it meanwhile.
    // Keys without a keyboard are dropped.
    const QVariantMap attributes = message.attributes();
    const QString getLocale = QStringLiteral("get_locale");
    if (attributes.contains(getLocale))
        if (const auto keyboard = this->keyboard())
            reply(QStringLiteral("locale"), keyboard->locale());
    const QString isVisible = QStringLiteral("is_visible");
    if (attributes.contains(isVisible))
        if (const auto keyboard = this->keyboard())
            reply(isVisible, keyboard->isVisible());
    const auto locale = attributes.constFind(QStringLiteral("set_locale"));
    if (locale != attributes.constEnd())
        if (const auto keyboard = this->keyboard())
            keyboard->setLocale(locale->toString());
    if (attributes.contains(QStringLiteral("show")))
        if (const auto keyboard = this->keyboard())
            keyboard->show();
    if (attributes.contains(QStringLiteral("hide")))
        if (const auto keyboard = this->keyboard())
            keyboard->hide();
}

QSharedPointer<IKeyboard> KeyboardControlHandler::keyboard() const
{
    return m_plugin ? m_plugin->keyboard() : QSharedPointer<IKeyboard>();
}

void KeyboardControlHandler::reply(const QString &key, const QVariant &value)
{
    m_brocker->publish(Message(constants::KEYBOARD_CONTROL_RESPONSE, {{key, value}}));
}

} // namespace panorel
