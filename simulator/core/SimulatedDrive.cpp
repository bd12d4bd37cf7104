#include "simulator/core/SimulatedDrive.h"

namespace simulator {

SimulatedDrive::SimulatedDrive(const Pace &pace, QObject *parent)
    : QObject(parent)
    , m_pace(pace)
{
    m_travel.setSingleShot(true);
    m_docking.setSingleShot(true);
    connect(&m_travel, &QTimer::timeout, this, &SimulatedDrive::onArrived);
    connect(&m_docking, &QTimer::timeout, this, &SimulatedDrive::onDocked);
}

void SimulatedDrive::driveTo(const unsigned short &point)
{
    if (m_mode == DriveModeDisabled) {
        setStatus(MovementStatusBlocked);
        return;
    }
    leaveCharger();
    m_point = point;
    m_travel.start(m_pace.milliseconds(m_travelTime));
    setStatus(MovementStatusMoving);
}

void SimulatedDrive::setPaused(const bool &paused)
{
    if (paused && m_status == MovementStatusMoving) {
        m_remaining = m_travel.remainingTime();
        m_travel.stop();
        setStatus(MovementStatusPaused);
    } else if (!paused && m_status == MovementStatusPaused) {
        m_travel.start(qMax(0, m_remaining));
        setStatus(MovementStatusMoving);
    }
}

void SimulatedDrive::setMode(const DriveMode &mode)
{
    if (mode < DriveModeManual || mode > DriveModeDisabled)
        return;
    m_mode = mode;
    Q_EMIT modeChanged(mode);

    const bool underWay = m_status == MovementStatusMoving || m_status == MovementStatusPaused;
    if (m_mode == DriveModeDisabled && underWay) {
        m_travel.stop();
        setStatus(MovementStatusStopped);
    }
}

void SimulatedDrive::setCharger(const bool &charger)
{
    if (!charger) {
        leaveCharger();
        return;
    }
    if (m_mode == DriveModeDisabled) {
        setChargerStatus(ChargerMovementStatusFailed);
        return;
    }
    if (m_chargerStatus == ChargerMovementStatusCharging
        || m_chargerStatus == ChargerMovementStatusApproaching)
        return;

    if (m_travel.isActive() || m_status == MovementStatusPaused) {
        m_travel.stop();
        setStatus(MovementStatusStopped);
    }
    m_docking.start(m_pace.milliseconds(m_dockingTime));
    setChargerStatus(ChargerMovementStatusApproaching);
}

void SimulatedDrive::block()
{
    if (m_chargerStatus == ChargerMovementStatusApproaching) {
        m_docking.stop();
        setChargerStatus(ChargerMovementStatusFailed);
    }
    if (m_status == MovementStatusMoving) {
        m_travel.stop();
        setStatus(MovementStatusBlocked);
    }
}

DriveMode SimulatedDrive::mode() const { return m_mode; }

MovementStatus SimulatedDrive::status() const { return m_status; }

ChargerMovementStatus SimulatedDrive::chargerStatus() const { return m_chargerStatus; }

unsigned short SimulatedDrive::point() const { return m_point; }

void SimulatedDrive::setTravelTime(int milliseconds) { m_travelTime = milliseconds; }

void SimulatedDrive::setDockingTime(int milliseconds) { m_dockingTime = milliseconds; }

void SimulatedDrive::leaveCharger()
{
    if (m_chargerStatus != ChargerMovementStatusCharging
        && m_chargerStatus != ChargerMovementStatusApproaching)
        return;
    m_docking.start(m_pace.milliseconds(m_dockingTime));
    setChargerStatus(ChargerMovementStatusLeaving);
}

void SimulatedDrive::onArrived() { setStatus(MovementStatusReached); }

void SimulatedDrive::onDocked()
{
    const bool approaching = m_chargerStatus == ChargerMovementStatusApproaching;
    setChargerStatus(approaching ? ChargerMovementStatusCharging : ChargerMovementStatusAway);
}

void SimulatedDrive::setStatus(MovementStatus status)
{
    m_status = status;
    Q_EMIT statusChanged(status);
}

void SimulatedDrive::setChargerStatus(ChargerMovementStatus status)
{
    m_chargerStatus = status;
    Q_EMIT chargerStatusChanged(status);
}

} // namespace simulator
