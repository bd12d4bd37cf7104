#include "simulator/core/CameraScene.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace simulator {

namespace {

const double Haste = 1.6; // per second: how eagerly people move to where they want to be
const double FaceWidth = 0.76; // of its height
const double Outside = 0.3; // how far beyond the edge the way out leads

const QStringList &emotions()
{
    static const QStringList names{QStringLiteral("neutral"), QStringLiteral("happy"),
                                   QStringLiteral("neutral"), QStringLiteral("surprise"),
                                   QStringLiteral("sad"),     QStringLiteral("anger")};
    return names;
}

// A damped spring, solved exactly, so that a long step ends where many short ones do.
void approach(double &value, double &speed, double target, double seconds)
{
    const double distance = value - target;
    const double push = speed + Haste * distance;
    const double fading = std::exp(-Haste * seconds);
    value = target + (distance + push * seconds) * fading;
    speed = (speed - Haste * push * seconds) * fading;
}

} // namespace

QRectF CameraPerson::face(const QSizeF &size) const
{
    const double pixels = height * size.height();
    QRectF rect(0, 0, pixels * FaceWidth, pixels);
    rect.moveCenter(QPointF(position.x() * size.width(), position.y() * size.height()));
    return rect.intersected(QRectF(QPointF(), size));
}

CameraScene::CameraScene(quint32 seed)
    : m_random(seed)
{ }

int CameraScene::capacity() { return 4; }

long long CameraScene::enter(long long id)
{
    const auto isSame = [id](const CameraPerson &person) { return id != 0 && person.id == id; };
    if (m_people.size() >= capacity() || std::any_of(m_people.cbegin(), m_people.cend(), isSame))
        return 0;

    CameraPerson person;
    person.track = ++m_lastTrack;
    person.id = id;
    person.gender = between(0, 1) < 0.5 ? GenderMale : GenderFemale;
    person.age = std::floor(between(18, 70));
    person.position = QPointF(between(0, 1) < 0.5 ? 0.0 : 1.0, between(0.35, 0.5));
    person.height = between(0.2, 0.3);
    wander(person);
    m_people.append(person);
    return person.track;
}

bool CameraScene::leave(long long track)
{
    CameraPerson *person = find(track);
    if (!person)
        return false;
    person->isLeaving = true;
    person->target.setX(person->position.x() < 0.5 ? -Outside : 1.0 + Outside);
    person->targetHeight = person->height;
    return true;
}

void CameraScene::describe(long long track, Gender gender, double age)
{
    CameraPerson *person = find(track);
    if (!person)
        return;
    if (gender != GenderUnknown)
        person->gender = gender;
    if (age > 0)
        person->age = age;
}

void CameraScene::setId(long long track, long long id)
{
    if (CameraPerson *person = find(track))
        person->id = id;
}

void CameraScene::advance(double seconds)
{
    for (CameraPerson &person : m_people) {
        person.patience -= seconds;
        if (person.patience <= 0 && !person.isLeaving)
            wander(person);
        approach(person.position.rx(), person.velocity.rx(), person.target.x(), seconds);
        approach(person.position.ry(), person.velocity.ry(), person.target.y(), seconds);
        approach(person.height, person.growth, person.targetHeight, seconds);
    }
    const auto isGone = [](const CameraPerson &person) {
        return person.isLeaving && (person.position.x() <= 0 || person.position.x() >= 1);
    };
    m_people.erase(std::remove_if(m_people.begin(), m_people.end(), isGone), m_people.end());
}

const QVector<CameraPerson> &CameraScene::people() const { return m_people; }

const CameraPerson *CameraScene::person(long long track) const
{
    const auto isSame = [track](const CameraPerson &person) { return person.track == track; };
    const auto found = std::find_if(m_people.cbegin(), m_people.cend(), isSame);
    return found == m_people.cend() ? nullptr : &*found;
}

CameraPerson *CameraScene::find(long long track)
{
    return const_cast<CameraPerson *>(person(track)); // the vector is this object's own
}

void CameraScene::wander(CameraPerson &person)
{
    person.target = QPointF(between(0.15, 0.85), between(0.3, 0.55));
    person.targetHeight = between(0.18, 0.42);
    person.patience = between(2, 6);
    person.emotion = emotions().at(static_cast<int>(between(0, emotions().size())));
}

// The standard's own distributions differ from library to library; this does not.
double CameraScene::between(double low, double high)
{
    return low + (high - low) * (static_cast<double>(m_random()) / 4294967296.0);
}

} // namespace simulator
