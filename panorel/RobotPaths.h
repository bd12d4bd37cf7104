#pragma once

#include "panorel/Export.h"

#include <QString>

/// Where the library's files lie: below the home folder of the robot's user, which is fixed when
/// the library is built (CMake setting PANOREL_ROBOT_HOME).
namespace panorel {
namespace paths {

/// Root of the statistics files, with a separator at its end.
PANOREL_EXPORT QString statisticDirectory();

/// The picture that is printed; each print request writes it anew.
PANOREL_EXPORT QString printPicture();

} // namespace paths
} // namespace panorel
