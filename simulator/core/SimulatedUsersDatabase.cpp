#include "simulator/core/SimulatedUsersDatabase.h"

namespace simulator {

SimulatedUsersDatabase::SimulatedUsersDatabase(QObject *parent)
    : IUsersDatabase(parent)
{ }

bool SimulatedUsersDatabase::user(const long long &id, UserData &user)
{
    const auto known = m_users.constFind(id);
    if (known == m_users.cend())
        return false;
    user = known.value();
    return true;
}

bool SimulatedUsersDatabase::addUser(const UserData &user)
{
    const long long id = user.info().id();
    if (m_users.contains(id))
        return false;
    m_users.insert(id, user);
    Q_EMIT changed();
    return true;
}

bool SimulatedUsersDatabase::deleteUser(const long long &id, const FaceInfo::Type &type)
{
    const auto known = m_users.constFind(id);
    if (known == m_users.cend() || known->info().type() != type)
        return false;
    m_users.remove(id);
    Q_EMIT changed();
    return true;
}

int SimulatedUsersDatabase::count() const { return m_users.size(); }

} // namespace simulator
