#pragma once

#include <vector>

#include "sol/maillageTerrain.h"

/// Renumbers vertices in the order given and triangles by their first vertex, so that what is near on the ground is
/// near in memory: walks over a large ground wait for memory more than for anything else.
void rapprocher(std::vector<sommetSol>& sommets, std::vector<triangleSol>& triangles, const std::vector<int>& ordre);
