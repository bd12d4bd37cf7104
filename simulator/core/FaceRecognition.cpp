#include "simulator/core/FaceRecognition.h"

#include "simulator/core/CameraScene.h"
#include "simulator/core/SimulatedFaces.h"
#include "simulator/core/SqliteUsersDatabase.h"

#include <algorithm>
#include <cmath>

namespace simulator {

namespace {

const int MostCandidates = 3;

/// A number from 0 to 1 that belongs to this pair for good.
double lot(long long track, long long id)
{
    const double mixed =
        std::sin(static_cast<double>(track) * 12.9898 + static_cast<double>(id % 100003) * 78.233)
        * 43758.5453;
    return mixed - std::floor(mixed);
}

double waver(long long track, double time)
{
    return std::sin(time * 0.7 + static_cast<double>(track));
}

} // namespace

FaceRecognition::FaceRecognition(const SimulatedFaces *faces,
                                 const QSharedPointer<SqliteUsersDatabase> &users)
    : m_faces(faces)
    , m_users(users)
{ }

FaceRecognition::Identity FaceRecognition::identify(long long id) const
{
    Identity identity;
    if (id == 0)
        return identity;
    if (m_users && m_users->user(id, identity.user)) {
        identity.type = FaceInfo::User;
        identity.id = id;
    } else if (m_faces->known().contains(id)) {
        identity.type = FaceInfo::Temporary;
        identity.id = id;
        FaceInfo face;
        face.setId(id);
        face.setType(identity.type);
        identity.user.setInfo(face);
    }
    return identity;
}

QVector<FaceRecognition::Identity> FaceRecognition::candidates() const
{
    QVector<long long> ids;
    if (m_users)
        ids = m_users->ids(MostCandidates);
    QList<long long> learned = m_faces->known().values();
    std::sort(learned.begin(), learned.end());
    for (const long long id : qAsConst(learned)) {
        if (!ids.contains(id) && ids.size() < MostCandidates)
            ids.append(id);
    }
    QVector<Identity> identities;
    for (const long long id : qAsConst(ids)) {
        const Identity identity = identify(id);
        if (identity.isKnown())
            identities.append(identity);
    }
    return identities;
}

FaceInfo FaceRecognition::describe(const CameraPerson &person, const Identity &identity,
                                   const QVector<Identity> &candidates, double time)
{
    const double wavering = waver(person.track, time);
    QVector<FaceInfo::FaceScore> matches;
    if (identity.isKnown()) {
        const double score = 0.85 + 0.1 * lot(person.track, identity.id) + 0.03 * wavering;
        matches.append({identity.type, identity.id, score});
    }
    for (const Identity &other : candidates) {
        const double score = 0.08 + 0.35 * lot(person.track, other.id) + 0.03 * wavering;
        if (other.id != identity.id)
            matches.append({other.type, other.id, score});
    }
    const auto isLikelier = [](const FaceInfo::FaceScore &left, const FaceInfo::FaceScore &right) {
        return left.score > right.score;
    };
    std::stable_sort(matches.begin(), matches.end(), isLikelier);

    FaceInfo face;
    face.setId(identity.id);
    face.setType(identity.type);
    face.setIdTrack(person.track);
    face.setGender(person.gender);
    face.setAge(std::max(0.0, person.age + 1.5 * wavering));
    face.setEmotion(person.emotion);
    face.setMatches(matches);
    return face;
}

} // namespace simulator
