#pragma once

#include "getol.h"

/// What geometry computations share in one process.
struct AcGeContext {
    /// The tolerance used where a caller names none.
    static AcGeTol gTol;
};
