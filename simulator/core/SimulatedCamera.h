#pragma once

#include "host/FaceInfo.h"
#include "host/FaceRect.h"
#include "host/UserData.h"
#include "simulator/core/CameraScene.h"
#include "simulator/core/FaceRecognition.h"
#include "simulator/core/Pace.h"

#include <QMap>
#include <QObject>
#include <QSet>
#include <QTimer>

namespace simulator {

/// The robot's camera: up to four people before it, whose faces it reports many times a second. The
/// main face is the one asked for with SimulatedFaces::track() while it is in the picture, else the
/// largest where automatic tracking is on. A face that is learned while a stranger is the main face
/// becomes the stranger's. GUI thread.
class SimulatedCamera : public QObject
{
    Q_OBJECT

public:
    /// @p faces is not owned and outlives the camera; @p users may be null. The same @p seed and
    /// the same calls give the same pictures.
    SimulatedCamera(SimulatedFaces *faces, const QSharedPointer<SqliteUsersDatabase> &users,
                    const Pace &pace, quint32 seed = 1, QObject *parent = nullptr);

    /// Somebody comes in, at an edge: the person @p id, or a stranger for 0. Returns the track id;
    /// 0 when the picture is full or the person is in it.
    long long enter(long long id = 0);
    /// Makes the person with this track go out, which takes a moment. Returns whether it is there.
    bool leave(long long track);
    void leaveAll();

    /// Switched off, the camera sees nobody, and people stand still. It is on to begin with.
    void setOn(bool on);
    bool isOn() const;
    /// Reports in a second of real time, from 1 to 100; 25 unless set.
    void setRate(int perSecond);
    /// The size, in pixels of the page, in which rectangles are reported.
    void setPictureSize(const QSizeF &size);

    /// Moves the people on by the time between two reports, and reports. The camera does it by
    /// itself while there is somebody; a test may take the steps itself.
    void step();

    /// Who is seen, who came first stands first; nobody while it is off.
    QVector<CameraPerson> people() const;
    FaceRecognition::Identity identity(long long track) const;
    /// How many people in the picture the robot knows.
    int knownPeople() const;
    /// The track id of the face that counts most; 0 when there is none.
    long long mainFace() const;

Q_SIGNALS:
    /// Where the faces stand and who they are, in the same order. Comes while somebody is seen,
    /// and once more, empty, after the last one.
    void reported(const QVector<FaceRectPtr> &rects, const QVector<FaceInfoPtr> &faces);
    void entered(const long long &track);
    void left(const long long &track);
    /// A known person has come, or somebody who is there is known from now on.
    void userSeen(const UserData &user);
    /// A known person is gone, or is no longer known.
    void userLost();
    void mainFaceChanged(const long long &track);
    /// The picture looks different.
    void pictureChanged();

private:
    using Identities = QMap<long long, FaceRecognition::Identity>;

    void look();
    void see(const Identities &now);
    void announce(const Identities &before, const Identities &now);
    void chooseMainFace();
    long long largestFace() const;
    void report();
    void updateTimer();
    void onFacesChanged();
    void nameTheMainFace(long long id);

    SimulatedFaces *m_faces;
    FaceRecognition m_recognition;
    Pace m_pace;
    CameraScene m_scene;
    QTimer m_timer;
    QSizeF m_pictureSize{1280, 800};
    Identities m_seen; // by track
    QVector<FaceRecognition::Identity> m_candidates;
    QSet<long long> m_learned;
    double m_time = 0.0; // seconds of the robot's time
    long long m_mainFace = 0;
    int m_rate = 25;
    bool m_isOn = true;
    bool m_hasReportedFaces = false;
};

} // namespace simulator
