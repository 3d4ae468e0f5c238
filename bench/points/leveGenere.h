#pragma once

#include <array>
#include <string>
#include <vector>

#include "points/pointDuDessin.h"

/// How the points of a survey lie, which is what removing duplicates may depend on.
enum class disposition {
    etalee,     ///< anywhere on the site
    grille,     ///< on a grid of 5 m: many points share their X
    avecOrigine ///< anywhere on the site, and one left at (0, 0), far from it
};

/// Points in the order of measuring, which is none, to the millimetre. Every tenth stands where the one before it does,
/// under a higher code. Names are "1", "2", ...; with `sansNom` every tenth is named "*". Equal arguments give equal
/// points.
std::vector<pointDuDessin> genererLeve(int nombre, disposition lieux, bool sansNom = false);

/// How points are called.
enum class nommage {
    simple, ///< "1", "2", ...
    complet ///< "P0000001", "P0000002", ...: what changes stands at the end of the longest names
};

/// The name of the point number `numero`.
std::string nomDuPoint(int numero, nommage noms);

/// What is asked for in a row, one name after the other in memory.
using nomLarge = std::array<wchar_t, pointDuDessin::tailleNom>;

/// The names of points 1 to `nombre`, shuffled: asked for in table order they would be found in the caches.
std::vector<nomLarge> nomsMeles(int nombre, nommage noms);
