#pragma once

namespace RetData {

/// How an application of the robot ended. Travels as its integer value.
enum FinishStatus : int {
    Success = 0,
    Cancelled = 1,
    Failed = 2,
};

} // namespace RetData
