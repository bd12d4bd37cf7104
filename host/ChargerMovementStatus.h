#pragma once

/// Where the robot stands with its charger. Travels as its integer value.
enum ChargerMovementStatus : int {
    ChargerMovementStatusAway = 0,
    ChargerMovementStatusApproaching = 1,
    ChargerMovementStatusCharging = 2,
    ChargerMovementStatusLeaving = 3,
    ChargerMovementStatusFailed = 4,
};
