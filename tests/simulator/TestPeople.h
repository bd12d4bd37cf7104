#pragma once

#include "host/UserData.h"

/// A person of the user database.
inline UserData testPerson(long long id, const QString &name)
{
    FaceInfo face;
    face.setId(id);
    face.setType(FaceInfo::User);
    UserData user;
    user.setInfo(face);
    user.setName(name);
    return user;
}
