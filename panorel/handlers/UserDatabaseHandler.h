#pragma once

#include "panorel/Export.h"
#include "panorel/MessageHandler.h"

#include <QVariant>

class IUsersDatabase;
class PluginInterface;

namespace panorel {

class MessageQueueBrocker;

/// Lets the page read, add and delete people of the user database.
class PANOREL_EXPORT UserDatabaseHandler : public MessageHandler
{
public:
    /// Nothing is owned.
    UserDatabaseHandler(PluginInterface *plugin, MessageQueueBrocker *brocker);

    /// "database.user.request".
    QString topic() const;

    /// Does what is present, in this order: "get_user" (id), "add_user" (object with "id", "name",
    /// "age", "gender", "extra_data"), "del_user" (id). Always answered by one
    /// "database.user.response" with "response": one member for each operation, the person or false
    /// for "get_user", otherwise whether it was done.
    void handle(Message message) override;

private:
    QVariant getUser(const QVariant &id) const;
    bool addUser(const QVariantMap &person) const;
    bool deleteUser(const QVariant &id) const;
    QSharedPointer<IUsersDatabase> database() const;

    PluginInterface *m_plugin;
    MessageQueueBrocker *m_brocker;
};

} // namespace panorel
