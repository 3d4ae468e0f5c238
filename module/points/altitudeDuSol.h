#pragma once

#include <optional>

#include "points/terrainVoisin.h"

/// The ground of the family's terrain module, when the host has loaded it.

/// The current model of the current drawing, and what answers questions about it. Not to be kept: the terrain module
/// may go, and its functions with it.
struct solCourant {
    terrain* modele;
    fonctionCalcZPoint calcZPoint;
    fonctionTinExtractPath tinExtractPath;
    fonctionTinPerime tinPerime; ///< may be null
};
/// @return nothing without that module, one of its functions, or a model
std::optional<solCourant> solDuDessin();

/// Whether what the current model was made from changed since; false where nobody knows.
bool solPerime();

/// Altitude of the current model there; `inconnu` off it, without a model, and where a coordinate is unknown.
double altitudeDuSol(double x, double y);
