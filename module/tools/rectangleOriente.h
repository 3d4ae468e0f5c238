#pragma once

#include <array>

#include "geometrie/plan.h"

/// A rectangle of any orientation, drawn from its origin. Its sides have signs: the first runs along the direction
/// `rotation` (radians, counter-clockwise from the east), the second a quarter of a turn to the left of it.
struct rectangleOriente {
    point2 origine;
    double rotation = 0.0;
    double a = 0.0, b = 0.0;

    /// Origin, end of the first side, the corner opposite to the origin, end of the second side.
    std::array<point2, 4> sommets() const;

    /// The first side ends at `p`.
    void orienterVers(point2 p);
    /// The second side reaches as far as `p`, on its side of the first one. Without a first side the second one ends at
    /// `p`, and gives the direction.
    void elargirVers(point2 p);
    /// Both sides, so that `p` is the corner opposite to the origin.
    void etendreVers(point2 p);
};
