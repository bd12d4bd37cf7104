#pragma once

#include "host/Export.h"
#include "host/FaceInfo.h"

#include <QObject>

class UserData;

/// The people whom the robot knows.
class PANOREL_HOST_EXPORT IUsersDatabase : public QObject
{
    Q_OBJECT

public:
    explicit IUsersDatabase(QObject *parent = nullptr);
    ~IUsersDatabase() override;

    /// Fills @p user with the person @p id. Returns false, and leaves @p user alone, when unknown.
    virtual bool user(const long long &id, UserData &user) = 0;
    /// Returns whether the person was stored.
    virtual bool addUser(const UserData &user) = 0;
    /// Returns whether there was such a person and it is gone.
    virtual bool deleteUser(const long long &id, const FaceInfo::Type &type) = 0;
};
