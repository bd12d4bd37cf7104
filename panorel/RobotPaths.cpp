#include "panorel/RobotPaths.h"

namespace panorel {
namespace paths {

QString statisticDirectory() { return QStringLiteral(PANOREL_ROBOT_HOME "/.karvel/statistic/"); }

} // namespace paths
} // namespace panorel
