#include "simulator/core/SimulatedCamera.h"

#include "simulator/core/SimulatedFaces.h"
#include "simulator/core/SqliteUsersDatabase.h"

#include <algorithm>

namespace simulator {

namespace {

/// How much larger another face has to be before it takes over; so two of about the same size do
/// not change places all the time.
const double Advantage = 1.15;

} // namespace

SimulatedCamera::SimulatedCamera(SimulatedFaces *faces,
                                 const QSharedPointer<SqliteUsersDatabase> &users, const Pace &pace,
                                 quint32 seed, QObject *parent)
    : QObject(parent)
    , m_faces(faces)
    , m_recognition(faces, users)
    , m_pace(pace)
    , m_scene(seed)
    , m_candidates(m_recognition.candidates())
    , m_learned(faces->known())
{
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(1000 / m_rate);
    connect(&m_timer, &QTimer::timeout, this, &SimulatedCamera::step);
    connect(m_faces, &SimulatedFaces::changed, this, &SimulatedCamera::onFacesChanged);
    if (users) {
        connect(users.data(), &SqliteUsersDatabase::changed, this,
                &SimulatedCamera::onFacesChanged);
    }
}

long long SimulatedCamera::enter(long long id)
{
    const long long track = m_scene.enter(id);
    if (track == 0)
        return 0;
    const FaceInfo known = m_recognition.identify(id).user.info();
    m_scene.describe(track, known.gender(), known.age());
    updateTimer();
    look();
    return track;
}

bool SimulatedCamera::leave(long long track) { return m_scene.leave(track); }

void SimulatedCamera::leaveAll()
{
    const QVector<CameraPerson> people = m_scene.people();
    for (const CameraPerson &person : people)
        m_scene.leave(person.track);
}

void SimulatedCamera::setOn(bool on)
{
    if (m_isOn == on)
        return;
    m_isOn = on;
    updateTimer();
    look();
    report();
}

bool SimulatedCamera::isOn() const { return m_isOn; }

void SimulatedCamera::setRate(int perSecond)
{
    m_rate = qBound(1, perSecond, 100);
    m_timer.setInterval(1000 / m_rate);
}

void SimulatedCamera::setPictureSize(const QSizeF &size) { m_pictureSize = size; }

void SimulatedCamera::step()
{
    if (!m_isOn)
        return;
    const double seconds = m_pace.speed() / m_rate;
    m_time += seconds;
    m_scene.advance(seconds);
    updateTimer();
    look();
    report();
}

QVector<CameraPerson> SimulatedCamera::people() const
{
    return m_isOn ? m_scene.people() : QVector<CameraPerson>();
}

FaceRecognition::Identity SimulatedCamera::identity(long long track) const
{
    return m_seen.value(track);
}

int SimulatedCamera::knownPeople() const
{
    return static_cast<int>(
        std::count_if(m_seen.cbegin(), m_seen.cend(),
                      [](const FaceRecognition::Identity &seen) { return seen.isKnown(); }));
}

long long SimulatedCamera::mainFace() const { return m_mainFace; }

void SimulatedCamera::look()
{
    Identities now;
    const QVector<CameraPerson> seen = people();
    for (const CameraPerson &person : seen) {
        const auto known = m_seen.constFind(person.track);
        now.insert(person.track,
                   known == m_seen.cend() ? m_recognition.identify(person.id) : *known);
    }
    see(now);
}

void SimulatedCamera::see(const Identities &now)
{
    const Identities before = m_seen;
    m_seen = now;
    announce(before, now);
    chooseMainFace();
    Q_EMIT pictureChanged();
}

// Whoever listens may change the picture, so this reads nothing but its arguments.
void SimulatedCamera::announce(const Identities &before, const Identities &now)
{
    for (auto it = before.cbegin(); it != before.cend(); ++it) {
        const bool isThere = now.contains(it.key());
        if (it->isKnown() && now.value(it.key()).id != it->id)
            Q_EMIT userLost();
        if (!isThere)
            Q_EMIT left(it.key());
    }
    for (auto it = now.cbegin(); it != now.cend(); ++it) {
        if (!before.contains(it.key()))
            Q_EMIT entered(it.key());
        const FaceRecognition::Identity earlier = before.value(it.key());
        if (it->isKnown() && (earlier.id != it->id || earlier.type != it->type))
            Q_EMIT userSeen(it->user);
    }
}

void SimulatedCamera::chooseMainFace()
{
    long long chosen = 0;
    if (m_seen.contains(m_faces->tracked()))
        chosen = m_faces->tracked();
    else if (m_faces->isTrackingAuto())
        chosen = largestFace();
    if (chosen == m_mainFace)
        return;
    m_mainFace = chosen;
    Q_EMIT mainFaceChanged(chosen);
}

long long SimulatedCamera::largestFace() const
{
    const CameraPerson *largest = m_isOn ? m_scene.person(m_mainFace) : nullptr;
    double limit = largest ? largest->height * Advantage : 0.0;
    const QVector<CameraPerson> seen = people();
    long long track = largest ? largest->track : 0;
    for (const CameraPerson &person : seen) {
        if (person.height > limit) {
            limit = person.height;
            track = person.track;
        }
    }
    return track;
}

void SimulatedCamera::report()
{
    QVector<FaceRectPtr> rects;
    QVector<FaceInfoPtr> faces;
    const QVector<CameraPerson> seen = people();
    for (const CameraPerson &person : seen) {
        rects.append(FaceRectPtr::create(person.face(m_pictureSize), person.track));
        FaceInfo face =
            FaceRecognition::describe(person, m_seen.value(person.track), m_candidates, m_time);
        face.setTracking(person.track == m_mainFace);
        faces.append(FaceInfoPtr::create(face));
    }
    const bool isNews = m_hasReportedFaces || !faces.isEmpty();
    m_hasReportedFaces = !faces.isEmpty();
    if (isNews)
        Q_EMIT reported(rects, faces);
}

void SimulatedCamera::updateTimer()
{
    const bool isNeeded = m_isOn && !m_scene.people().isEmpty();
    if (isNeeded && !m_timer.isActive())
        m_timer.start();
    else if (!isNeeded)
        m_timer.stop();
}

// What the robot knows or follows has changed, and with it who people are taken for.
void SimulatedCamera::onFacesChanged()
{
    const QSet<long long> known = m_faces->known();
    const QSet<long long> fresh = known - m_learned;
    m_learned = known;
    for (const long long id : fresh)
        nameTheMainFace(id);

    m_candidates = m_recognition.candidates();
    Identities now;
    const QVector<CameraPerson> seen = people();
    for (const CameraPerson &person : seen)
        now.insert(person.track, m_recognition.identify(person.id));
    see(now);
}

// A face that was just learned belongs to the stranger before the robot, unless its owner is there.
void SimulatedCamera::nameTheMainFace(long long id)
{
    for (const CameraPerson &person : m_scene.people()) {
        if (person.id == id)
            return;
    }
    const CameraPerson *person = m_scene.person(m_mainFace);
    if (person && person->id == 0)
        m_scene.setId(m_mainFace, id);
}

} // namespace simulator
