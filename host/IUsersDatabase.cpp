#include "host/IUsersDatabase.h"

IUsersDatabase::IUsersDatabase(QObject *parent)
    : QObject(parent)
{ }

IUsersDatabase::~IUsersDatabase() = default;
