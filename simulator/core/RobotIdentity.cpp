#include "simulator/core/RobotIdentity.h"

namespace simulator {

RobotIdentity &RobotIdentity::instance()
{
    static RobotIdentity identity;
    return identity;
}

} // namespace simulator
