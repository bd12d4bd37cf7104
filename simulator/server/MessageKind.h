#pragma once

#include "panorel/Message.h"

namespace simulator {

enum class MessageDirection { PageToRobot, RobotToPage, Inside };

/// Which way @p message goes on the bus.
MessageDirection directionOf(const panorel::Message &message);

/// Whether it tells where the faces stand or who they are; such messages come many times a second.
bool isFaceReport(const panorel::Message &message);

} // namespace simulator
