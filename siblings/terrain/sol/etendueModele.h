#pragma once

#include <vector>

#include "sol/maillageTerrain.h"
#include "sol/semisTerrain.h"

/// Which triangles belong to the model, one flag for each: those in a limit, if there are limits, and in no hole; not
/// those that a walk from outside reaches over sides longer than the longest allowed, break lines aside.
/// Time: n log n, and for each triangle the sides of the outlines at its height.
std::vector<char> trianglesDuModele(const maillageTerrain& sol, const semisTerrain& semis);
