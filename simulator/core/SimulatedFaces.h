#pragma once

#include "host/FaceTrainStatus.h"
#include "simulator/core/Pace.h"

#include <QObject>
#include <QSet>
#include <QTimer>

namespace simulator {

/// The face recognition: it keeps what it was told and learns faces step by step. GUI thread.
class SimulatedFaces : public QObject
{
    Q_OBJECT

public:
    explicit SimulatedFaces(const Pace &pace, QObject *parent = nullptr);

    /// Switched on, it takes over from a face asked for with track().
    void setTrackingAuto(const bool &automatic);
    void track(const long long &idTrack);
    void setHeadEnabled(const bool &enabled);
    /// Learns the face @p id; a training that is under way is given up.
    void addFace(const long long &id);
    /// Forgets the face @p id, and gives up its training.
    void deleteFace(const long long &id);

    bool isTrackingAuto() const;
    /// The track id asked for last; 0 when automatic tracking took over since, and before.
    long long tracked() const;
    bool isHeadEnabled() const;
    /// The faces that were learned to the end.
    QSet<long long> known() const;

    /// The step that ends a training; it begins with step 0.
    static int lastStep();
    /// How long one step takes, in milliseconds of the robot's time.
    void setStepTime(int milliseconds);

Q_SIGNALS:
    void changed();
    void trainStatusChanged(const FaceTrainStatus &status);

private:
    void onStep();

    Pace m_pace;
    QTimer m_timer;
    QSet<long long> m_known;
    long long m_tracked = 0;
    long long m_training = 0;
    int m_step = 0;
    int m_stepTime = 700;
    bool m_trackingAuto = true;
    bool m_headEnabled = true;
};

} // namespace simulator
