#pragma once

#include "calculs/calculPolygonaleFermee.h"
#include "points/exportation.h"

#include <vector>

// Drawing glue: what a corrected traverse becomes in the drawing.

struct placementPolygonale {
    int code = 100;         ///< of the station points; below 1 or above 9999 it is 100
    bool altitudes = false; ///< otherwise the altitudes of the points are unknown
};

/// Adds the stations to the current point table, each shown by the symbol of their code, and draws the lines in model
/// space, all as one undo step. A station whose coordinates are not finite is left out, and one whose X or Y is unknown
/// is not drawn; so are lines with such a vertex.
/// @return the number of points added; 0 when the drawing has no project.
VELA_EXPORT int placerPolygonale(const std::vector<stationCorrigee>& stations, const placementPolygonale& placement,
                                 const std::vector<tracePolygonale>& traces);
