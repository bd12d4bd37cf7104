#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

#include <QSharedPointer>
#include <QString>

class IKeyboard;
class PluginInterface;
class QVariant;

namespace panorel {

class MessageQueueBrocker;

/// Shows, hides and configures the robot's on-screen keyboard.
class PANOREL_EXPORT KeyboardControlHandler : public MessageHandler
{
public:
    /// Nothing is owned.
    KeyboardControlHandler(PluginInterface *plugin, MessageQueueBrocker *brocker);

    /// "keyboard.control.request".
    QString topic() const;

    /// Does what is present, in this order: "get_locale", answered by "keyboard.control.response"
    /// with "locale"; "is_visible", answered by one with "is_visible"; "set_locale" (text); "show";
    /// "hide". Without a keyboard nothing happens and nothing is answered.
    void handle(Message message) override;

private:
    QSharedPointer<IKeyboard> keyboard() const;
    void reply(const QString &key, const QVariant &value);

    PluginInterface *m_plugin;
    MessageQueueBrocker *m_brocker;
};

} // namespace panorel
