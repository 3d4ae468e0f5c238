#pragma once

#include "ed/input/Keywords.h"

#include "adscodes.h"

/// What acedInitGet says of the next request.
struct InitGet {
    int bits = 0; ///< RSG_...
    std::vector<InputKeyword> keywords;

    bool has(int bit) const { return (bits & bit) != 0; }
};
