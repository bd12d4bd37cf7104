#pragma once

/// What the drive is doing. Travels as its integer value.
enum MovementStatus : int {
    MovementStatusStopped = 0,
    MovementStatusMoving = 1,
    MovementStatusPaused = 2,
    MovementStatusReached = 3,
    MovementStatusBlocked = 4,
};
