#pragma once

/// Animation that the robot plays with a replica. Travels as its integer value.
/// The fixed underlying type lets any integer that a page sends be held.
enum Animation : int {
    AnimationNone = 0,
    AnimationGreeting = 1,
    AnimationNod = 2,
    AnimationPoint = 3,
    AnimationFarewell = 4,
};
