#include "panorel/RobotPaths.h"

#include "tests/support/TestCase.h"

class RobotPathsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void liesBelowTheRobotsHome();
};

void RobotPathsTest::liesBelowTheRobotsHome()
{
    QCOMPARE(panorel::paths::statisticDirectory(),
             QStringLiteral(PANOREL_ROBOT_HOME "/.karvel/statistic/"));
    QCOMPARE(panorel::paths::printPicture(), QStringLiteral(PANOREL_ROBOT_HOME "/talonchik.png"));
}

QTEST_GUILESS_MAIN(RobotPathsTest)
#include "tst_robotpaths.moc"
