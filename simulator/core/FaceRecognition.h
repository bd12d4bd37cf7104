#pragma once

#include "host/FaceInfo.h"
#include "host/UserData.h"

#include <QSharedPointer>
#include <QVector>

namespace simulator {

struct CameraPerson;
class SimulatedFaces;
class SqliteUsersDatabase;

/// Tells who a face belongs to: a person of the user database, or a face that was learned. GUI
/// thread.
class FaceRecognition
{
public:
    /// Who somebody is taken for.
    struct Identity
    {
        bool isKnown() const { return type != FaceInfo::Unknown; }

        /// User for a person of the database, Temporary for a face that was only learned.
        FaceInfo::Type type = FaceInfo::Unknown;
        long long id = 0;
        UserData user;
    };

    /// @p faces is not owned and outlives this object. @p users may be null.
    FaceRecognition(const SimulatedFaces *faces, const QSharedPointer<SqliteUsersDatabase> &users);

    /// Who the face with the true id @p id is taken for.
    Identity identify(long long id) const;
    /// Some of the people who are known, for comparison.
    QVector<Identity> candidates() const;

    /// What the recognition says of @p person, who is taken for @p identity: estimates that waver
    /// a little with @p time, in seconds, and the likeness to @p identity and to others. The same
    /// arguments give the same face.
    static FaceInfo describe(const CameraPerson &person, const Identity &identity,
                             const QVector<Identity> &candidates, double time);

private:
    const SimulatedFaces *m_faces;
    QSharedPointer<SqliteUsersDatabase> m_users;
};

} // namespace simulator
