#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

#include <QVariantMap>

class PluginInterface;

namespace panorel {

class MessageQueueBrocker;

/// Lets the page read settings of the application or of the system.
class PANOREL_EXPORT GetSettingHandler : public MessageHandler
{
public:
    /// Nothing is owned.
    GetSettingHandler(PluginInterface *plugin, MessageQueueBrocker *brocker);

    /// "system.settings.get".
    QString topic() const;

    /// "settings_type": "application" or "system", letter case counts; "group"; "name": one setting,
    /// empty for the whole group.
    ///
    /// Always answered by one "system.settings.load" with "settings": one object for each setting
    /// found, with "settings_type", "group", "name" and "value", under random UUIDs as keys.
    void handle(Message message) override;

private:
    QVariantMap settings(const QString &type, const QString &group, const QString &name) const;

    PluginInterface *m_plugin;
    MessageQueueBrocker *m_brocker;
};

} // namespace panorel
