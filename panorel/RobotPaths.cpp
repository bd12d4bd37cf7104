#include "panorel/RobotPaths.h"

namespace panorel {
namespace paths {

QString statisticDirectory() { return QStringLiteral(PANOREL_ROBOT_HOME "/.karvel/statistic/"); }

QString printPicture() { return QStringLiteral(PANOREL_ROBOT_HOME "/talonchik.png"); }

} // namespace paths
} // namespace panorel
