#pragma once

/// Gender that the face recognition estimates. Travels as its integer value.
enum Gender : int {
    GenderUnknown = 0,
    GenderMale = 1,
    GenderFemale = 2,
};
