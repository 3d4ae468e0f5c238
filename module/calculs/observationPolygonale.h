#pragma once

#include <string>
#include <vector>

#include "calculs/donneesPolygonale.h"

/// Longest station name of an observation; longer ones are cut, in files as in computations.
inline constexpr std::size_t longueurNomStation = 18;

/// One observation of a traverse, from the previous station to the one it names.
struct observationPolygonale {
    std::wstring nom;      ///< sighted station, at most 18 characters
    double angle = 0.0;    ///< measured at the previous station from the one before it, in the unit of the traverse
    double distance = 0.0; ///< horizontal
    double dz = 0.0;       ///< height difference
};

/// The records of a list, in its order. A cell that is not a number reads as 0, see reelDeTexte.
std::vector<observationPolygonale> observationsDe(const std::vector<ligneObservation>& lignes);
