#include "simulator/core/SimulatedDrive.h"

#include "tests/support/TestCase.h"

using simulator::Pace;
using simulator::SimulatedDrive;

class SimulatedDriveTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void reachesAPoint();
    void pausesAndGoesOn();
    void pauseAtRestDoesNothing();
    void reportsEachModeThatIsSet();
    void ignoresANumberThatIsNoMode();
    void disablingStopsTheDrive();
    void disabledDriveIsBlocked();
    void goesToTheChargerAndLeavesIt();
    void disabledDriveFailsToReachTheCharger();
    void leavingNoChargerDoesNothing();
    void chargerEndsTheDriveToAPoint();
    void drivingLeavesTheCharger();
    void obstacleEndsTheDrive();

protected:
    void setUp() override
    {
        m_statuses.clear();
        m_modes.clear();
        m_charger.clear();
        m_drive.reset(new SimulatedDrive(Pace()));
        m_drive->setTravelTime(5);
        m_drive->setDockingTime(5);
        connect(m_drive.data(), &SimulatedDrive::statusChanged, this,
                [this](MovementStatus status) { m_statuses.append(status); });
        connect(m_drive.data(), &SimulatedDrive::modeChanged, this,
                [this](DriveMode mode) { m_modes.append(mode); });
        connect(m_drive.data(), &SimulatedDrive::chargerStatusChanged, this,
                [this](ChargerMovementStatus status) { m_charger.append(status); });
    }
    void tearDown() override { m_drive.reset(); }

private:
    QScopedPointer<SimulatedDrive> m_drive;
    QList<int> m_statuses;
    QList<int> m_modes;
    QList<int> m_charger;
};

void SimulatedDriveTest::reachesAPoint()
{
    m_drive->driveTo(7);
    QCOMPARE(m_drive->point(), static_cast<unsigned short>(7));
    QCOMPARE(m_statuses, QList<int>{MovementStatusMoving});
    QTRY_COMPARE(m_statuses, (QList<int>{MovementStatusMoving, MovementStatusReached}));
}

void SimulatedDriveTest::pausesAndGoesOn()
{
    m_drive->setTravelTime(100000);
    m_drive->driveTo(1);
    m_drive->setPaused(true);
    QCOMPARE(m_drive->status(), MovementStatusPaused);
    m_drive->setPaused(false);
    QCOMPARE(m_statuses,
             (QList<int>{MovementStatusMoving, MovementStatusPaused, MovementStatusMoving}));
}

void SimulatedDriveTest::pauseAtRestDoesNothing()
{
    m_drive->setPaused(true);
    m_drive->setPaused(false);
    QVERIFY(m_statuses.isEmpty());
}

void SimulatedDriveTest::reportsEachModeThatIsSet()
{
    m_drive->setMode(DriveModeFollow);
    m_drive->setMode(DriveModeFollow);
    QCOMPARE(m_modes, (QList<int>{DriveModeFollow, DriveModeFollow}));
    QCOMPARE(m_drive->mode(), DriveModeFollow);
}

void SimulatedDriveTest::ignoresANumberThatIsNoMode()
{
    m_drive->setMode(static_cast<DriveMode>(99));
    m_drive->setMode(static_cast<DriveMode>(-1));
    QVERIFY(m_modes.isEmpty());
    QCOMPARE(m_drive->mode(), DriveModeManual);
}

void SimulatedDriveTest::disablingStopsTheDrive()
{
    m_drive->setTravelTime(100000);
    m_drive->driveTo(1);
    m_drive->setMode(DriveModeDisabled);
    QCOMPARE(m_statuses, (QList<int>{MovementStatusMoving, MovementStatusStopped}));
}

void SimulatedDriveTest::disabledDriveIsBlocked()
{
    m_drive->setMode(DriveModeDisabled);
    m_drive->driveTo(1);
    QCOMPARE(m_statuses, QList<int>{MovementStatusBlocked});
}

void SimulatedDriveTest::goesToTheChargerAndLeavesIt()
{
    m_drive->setCharger(true);
    QTRY_COMPARE(m_charger,
                 (QList<int>{ChargerMovementStatusApproaching, ChargerMovementStatusCharging}));
    m_charger.clear();
    m_drive->setCharger(true); // is there already
    QVERIFY(m_charger.isEmpty());
    m_drive->setCharger(false);
    QTRY_COMPARE(m_charger, (QList<int>{ChargerMovementStatusLeaving, ChargerMovementStatusAway}));
}

void SimulatedDriveTest::disabledDriveFailsToReachTheCharger()
{
    m_drive->setMode(DriveModeDisabled);
    m_drive->setCharger(true);
    QCOMPARE(m_charger, QList<int>{ChargerMovementStatusFailed});
}

void SimulatedDriveTest::leavingNoChargerDoesNothing()
{
    m_drive->setCharger(false);
    QVERIFY(m_charger.isEmpty());
}

void SimulatedDriveTest::chargerEndsTheDriveToAPoint()
{
    m_drive->setTravelTime(100000);
    m_drive->driveTo(1);
    m_drive->setCharger(true);
    QCOMPARE(m_statuses, (QList<int>{MovementStatusMoving, MovementStatusStopped}));
    QCOMPARE(m_charger, QList<int>{ChargerMovementStatusApproaching});
}

void SimulatedDriveTest::drivingLeavesTheCharger()
{
    m_drive->setCharger(true);
    QTRY_COMPARE(m_drive->chargerStatus(), ChargerMovementStatusCharging);
    m_drive->driveTo(2);
    QCOMPARE(m_drive->chargerStatus(), ChargerMovementStatusLeaving);
    QTRY_COMPARE(m_drive->chargerStatus(), ChargerMovementStatusAway);
    QTRY_COMPARE(m_drive->status(), MovementStatusReached);
}

void SimulatedDriveTest::obstacleEndsTheDrive()
{
    m_drive->setTravelTime(100000);
    m_drive->driveTo(1);
    m_drive->block();
    QCOMPARE(m_drive->status(), MovementStatusBlocked);

    m_drive->setDockingTime(100000);
    m_drive->setCharger(true);
    m_drive->block();
    QCOMPARE(m_drive->chargerStatus(), ChargerMovementStatusFailed);
}

QTEST_GUILESS_MAIN(SimulatedDriveTest)

#include "tst_simulateddrive.moc"
