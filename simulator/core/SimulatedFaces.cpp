#include "simulator/core/SimulatedFaces.h"

namespace simulator {

namespace {

// A page may ask for ever more.
const int MostFaces = 1000;

} // namespace

SimulatedFaces::SimulatedFaces(const Pace &pace, QObject *parent)
    : QObject(parent)
    , m_pace(pace)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &SimulatedFaces::onStep);
}

void SimulatedFaces::setTrackingAuto(const bool &automatic)
{
    m_trackingAuto = automatic;
    if (automatic)
        m_tracked = 0;
    Q_EMIT changed();
}

void SimulatedFaces::track(const long long &idTrack)
{
    m_tracked = idTrack;
    Q_EMIT changed();
}

void SimulatedFaces::setHeadEnabled(const bool &enabled)
{
    m_headEnabled = enabled;
    Q_EMIT changed();
}

void SimulatedFaces::addFace(const long long &id)
{
    m_training = id;
    m_step = 0;
    m_timer.start(m_pace.milliseconds(m_stepTime));
    Q_EMIT trainStatusChanged(FaceTrainStatus(m_step));
}

void SimulatedFaces::deleteFace(const long long &id)
{
    if (m_training == id)
        m_timer.stop();
    m_known.remove(id);
    Q_EMIT changed();
}

bool SimulatedFaces::isTrackingAuto() const { return m_trackingAuto; }

long long SimulatedFaces::tracked() const { return m_tracked; }

bool SimulatedFaces::isHeadEnabled() const { return m_headEnabled; }

QSet<long long> SimulatedFaces::known() const { return m_known; }

int SimulatedFaces::lastStep() { return 5; }

void SimulatedFaces::setStepTime(int milliseconds) { m_stepTime = milliseconds; }

void SimulatedFaces::onStep()
{
    ++m_step;
    if (m_step < lastStep()) {
        m_timer.start(m_pace.milliseconds(m_stepTime));
    } else {
        if (m_known.size() < MostFaces)
            m_known.insert(m_training);
        Q_EMIT changed();
    }
    Q_EMIT trainStatusChanged(FaceTrainStatus(m_step));
}

} // namespace simulator
