#pragma once

#include <vector>

#include "sol/maillageTerrain.h"

/// Two vertices to be joined, by their numbers; `rupture` says whether the line brings altitudes of its own.
struct contrainteSol {
    int de = 0, vers = 0;
    bool rupture = true;
};

/// A vertex that lies on a constraint, between its ends.
struct passageSol {
    int sommet = 0;
    int contrainte = 0;
};

struct delaunayFait {
    std::vector<sommetSol> sommets; ///< those given, in their order, then those where constraints cross
    int donnes = 0;                 ///< how many were given
    std::vector<triangleSol> triangles;
    std::vector<int> ordre;           ///< the vertices so that each is near the one before it, those of crossings last
    std::vector<passageSol> passages; ///< every vertex inside a constraint, in the order of the constraints
};

/// The triangulation itself. Vertices given are at places that differ; altitudes play no part, those of new vertices
/// are left at 0. This is the only door to the geometry library, whose headers are slow to compile.
delaunayFait delaunayContraint(std::vector<sommetSol> sommets, const std::vector<contrainteSol>& contraintes);
