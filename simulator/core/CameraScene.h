#pragma once

#include "host/Gender.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QVector>

#include <random>

namespace simulator {

/// Somebody in front of the camera.
struct CameraPerson
{
    /// Where the face stands in a picture of @p size pixels; what lies outside is cut off.
    QRectF face(const QSizeF &size) const;

    long long track = 0;
    /// Who it really is, whether the robot knows it or not; 0 for somebody without an id.
    long long id = 0;
    Gender gender = GenderUnknown;
    double age = 0.0; // years
    QString emotion;
    QPointF position; // the face's middle, in parts of the picture's width and height
    double height = 0.0; // the face's, in parts of the picture's height
    bool isLeaving = false;

    // How it moves on.
    QPointF velocity;
    double growth = 0.0;
    QPointF target;
    double targetHeight = 0.0;
    double patience = 0.0; // seconds until it wants to be elsewhere
};

/// The people in front of the camera and how they move: come in at an edge, wander about, and go
/// out at an edge. The same seed and the same calls give the same picture. A value type.
class CameraScene
{
public:
    explicit CameraScene(quint32 seed);

    /// How many fit in the picture.
    static int capacity();

    /// Somebody comes in; @p id may be 0. Gender and age are made up. Returns the track id, which
    /// no one else gets; 0 when the picture is full or the person is in it.
    long long enter(long long id);
    /// Makes it walk to the edge. Returns whether it is in the picture.
    bool leave(long long track);
    /// Gender and age as known of this person; an age of 0 and an unknown gender change nothing.
    void describe(long long track, Gender gender, double age);
    void setId(long long track, long long id);

    /// Lets @p seconds pass. Who has reached the edge is gone.
    void advance(double seconds);

    /// Who came first stands first.
    const QVector<CameraPerson> &people() const;
    /// Null when nobody in the picture has this track.
    const CameraPerson *person(long long track) const;

private:
    CameraPerson *find(long long track);
    void wander(CameraPerson &person);
    double between(double low, double high);

    std::mt19937 m_random;
    QVector<CameraPerson> m_people;
    long long m_lastTrack = 0;
};

} // namespace simulator
