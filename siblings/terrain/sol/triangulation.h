#pragma once

#include <vector>

#include "sol/maillageTerrain.h"
#include "sol/semisTerrain.h"

/// A ground, and what is to be told of its making.
struct solTriangule {
    maillageTerrain maillage; ///< empty without three points that are not in line
    std::vector<incidentSol> incidents;
};

/// Constrained Delaunay triangulation of the points and lines. Points nearer than `memeLieu` are one; points whose
/// coordinates are not known are left out. Predicates are exact: coordinates far from the origin lose nothing.
/// Time: n log n for n points, and the sides that the lines cross.
solTriangule trianguler(const semisTerrain& semis);

/// Below this distance two points are at one place.
inline constexpr double memeLieu = 1e-4;
/// Altitudes that differ by no more than this agree.
inline constexpr double memeAltitude = 0.005;
