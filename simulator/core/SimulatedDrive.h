#pragma once

#include "host/ChargerMovementStatus.h"
#include "host/DriveMode.h"
#include "host/MovementStatus.h"
#include "simulator/core/Pace.h"

#include <QObject>
#include <QTimer>

namespace simulator {

/// The robot's base: it takes a while to reach a point or the charger. GUI thread.
class SimulatedDrive : public QObject
{
    Q_OBJECT

public:
    explicit SimulatedDrive(const Pace &pace, QObject *parent = nullptr);

    /// Drives to @p point; a drive that is under way is given up. Blocked when the drive is
    /// disabled.
    void driveTo(const unsigned short &point);
    /// Holds the drive that is under way, or goes on with it. Otherwise without effect.
    void setPaused(const bool &paused);
    /// Switches the mode and reports it, also when it is the same. A number that is no mode
    /// changes nothing. Disabling ends a drive that is under way.
    void setMode(const DriveMode &mode);
    /// True goes to the charger, false leaves it.
    void setCharger(const bool &charger);
    /// Something stands in the way: the drive that is under way ends.
    void block();

    DriveMode mode() const;
    MovementStatus status() const;
    ChargerMovementStatus chargerStatus() const;
    /// The point driven to last; 0 before the first drive.
    unsigned short point() const;

    /// How long a drive to a point takes, in milliseconds of the robot's time.
    void setTravelTime(int milliseconds);
    /// How long it takes to reach or to leave the charger, in milliseconds of the robot's time.
    void setDockingTime(int milliseconds);

Q_SIGNALS:
    void modeChanged(const DriveMode &mode);
    void statusChanged(const MovementStatus &status);
    void chargerStatusChanged(const ChargerMovementStatus &status);

private:
    void leaveCharger();
    void onArrived();
    void onDocked();
    void setStatus(MovementStatus status);
    void setChargerStatus(ChargerMovementStatus status);

    Pace m_pace;
    QTimer m_travel;
    QTimer m_docking;
    DriveMode m_mode = DriveModeManual;
    MovementStatus m_status = MovementStatusStopped;
    ChargerMovementStatus m_chargerStatus = ChargerMovementStatusAway;
    unsigned short m_point = 0;
    int m_travelTime = 5000;
    int m_dockingTime = 3000;
    int m_remaining = 0; // real milliseconds of the drive that is paused
};

} // namespace simulator
