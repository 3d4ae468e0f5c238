#pragma once

#include <string>
#include <vector>

#include "calculs/reseau/equationsObservation.h"

/// Places to start from.
struct approcheReseau {
    coordonneesReseau c;
    std::vector<bool> enPlan, enAltitude; ///< by point: whether it has a place
    std::vector<std::wstring> messages;   ///< French: what cannot be placed, and what would place it
};

/// Coordinates that the network gives, and those found from them: along bearings and distances, by intersections and
/// resections, through traverses and parts that hang together by themselves before they are fitted in.
/// @param seulementFixes coordinates of points that are looked for do not count as given
approcheReseau approcher(const reseau& r, bool seulementFixes = false);

/// Orientation of each set from the places of its points: the median of what its directions say.
void orienterSeries(const reseau& r, approcheReseau& a);
