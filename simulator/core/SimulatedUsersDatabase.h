#pragma once

#include "host/IUsersDatabase.h"
#include "host/UserData.h"

#include <QMap>

namespace simulator {

/// The known people, in memory. GUI thread.
class SimulatedUsersDatabase : public IUsersDatabase
{
    Q_OBJECT

public:
    explicit SimulatedUsersDatabase(QObject *parent = nullptr);

    bool user(const long long &id, UserData &user) override;
    /// Refuses a person whose id is taken.
    bool addUser(const UserData &user) override;
    /// Deletes only when the person's face has the type @p type.
    bool deleteUser(const long long &id, const FaceInfo::Type &type) override;

    int count() const;

Q_SIGNALS:
    void changed();

private:
    QMap<long long, UserData> m_users;
};

} // namespace simulator
