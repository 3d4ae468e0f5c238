#pragma once

#include "sol/maillageTerrain.h"

/// Volumes between a ground and what is compared with it, over what both cover. Cut: where the ground is higher, to be
/// taken away; fill: where it is lower, to be brought.
struct volumesTerrain {
    double deblai = 0.0, remblai = 0.0;         ///< cubic units, both positive
    double aireDeblai = 0.0, aireRemblai = 0.0; ///< in plan
    double aireNulle = 0.0;                     ///< where both are at one altitude
    double aire() const { return aireDeblai + aireRemblai + aireNulle; }
};

/// Against the level plane of an altitude. Exact for the triangles, up to rounding.
volumesTerrain volumesSousPlan(const maillageTerrain& sol, double altitude);

/// Against another ground, over what belongs to both. Exact for the triangles, which are cut along each other.
/// Time: the pairs of triangles that overlap.
volumesTerrain volumesEntre(const maillageTerrain& sol, const maillageTerrain& autre);
