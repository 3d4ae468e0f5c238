#pragma once

#include <string>

#include "calculs/formules/tableVariables.h"

/// Weight formulas, Windows-1252; an empty one leaves the standard deviations.
struct formulesPoids {
    std::string angles; ///< of directions, angles and zenith angles
    std::string gisements;
    std::string distances; ///< horizontal and slope ones
    tableVariables variables;

    bool operator==(const formulesPoids&) const = default;
};
