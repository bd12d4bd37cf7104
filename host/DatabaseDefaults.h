#pragma once

#include "host/Export.h"
#include "host/ID.h"

/// Defaults of the dialog database. The robot core defines the operations.
class PANOREL_HOST_EXPORT DatabaseDefaults
{
public:
    /// The category of replicas that are asked for without one.
    static ID defaultCategory();
};
