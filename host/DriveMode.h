#pragma once

/// Who steers the drive. Travels as its integer value.
enum DriveMode : int {
    DriveModeManual = 0,
    DriveModeAutomatic = 1,
    DriveModeFollow = 2,
    DriveModeDisabled = 3,
};
