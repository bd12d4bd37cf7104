// Adds people to a users' database until it is killed: adds-people FILE FIRST-ID. Prints each id,
// one a line, once the database has acknowledged the person.

#include "simulator/core/SqliteUsersDatabase.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    simulator::SqliteUsersDatabase database(application.arguments().value(1));
    if (database.isInMemory())
        return 1;
    for (long long id = application.arguments().value(2).toLongLong();; ++id) {
        FaceInfo face;
        face.setId(id);
        face.setType(FaceInfo::User);
        UserData user;
        user.setInfo(face);
        user.setName(QStringLiteral("Person %1").arg(id));
        user.setExtraData(QString(2000, QLatin1Char('x')));
        if (!database.addUser(user))
            return 1;
        std::printf("%lld\n", id);
        std::fflush(stdout);
    }
}
