#pragma once

#include <string>
#include <vector>

#include "calculs/avertissementsPolygonale.h"
#include "points/exportation.h"
#include "points/pointDuDessin.h"

// Drawing glue: what a corrected traverse becomes in the drawing.

inline constexpr int codeStationsParDefaut = 100;

/// The code that station points get for one that was asked for: the default one, unless it is within 1 to 9999.
constexpr int codeDesStations(double demande)
{
    return demande >= 1.0 && demande < 10000.0 ? static_cast<int>(demande) : codeStationsParDefaut;
}

struct placementPolygonale {
    int code = codeStationsParDefaut; ///< see codeDesStations
    bool altitudes = false;           ///< otherwise the altitudes of the points are unknown
};

/// French sentences for names that the point table cuts or changes, see avertissementsNoms.
inline std::vector<std::wstring> avertissementsPlacement(const std::vector<stationCorrigee>& stations)
{
    return avertissementsNoms(stations, pointDuDessin::longueurNom, L"dans la table de points");
}

/// Adds the stations to the current point table, each shown by the symbol of their code, and draws the lines in model
/// space, all as one undo step. A station whose coordinates are not finite is left out, and one whose X or Y is unknown
/// is not drawn; so are lines with such a vertex.
/// @return the number of points added; 0 when the drawing has no project.
VELA_EXPORT int placerPolygonale(const std::vector<stationCorrigee>& stations, const placementPolygonale& placement,
                                 const std::vector<tracePolygonale>& traces);
