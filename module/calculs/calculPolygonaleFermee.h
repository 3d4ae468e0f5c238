#pragma once

#include <functional>
#include <string>
#include <vector>

#include "calculs/cheminement.h"

class htmlDocument;

// Closed traverse: a loop that starts at a known station, visits those of rows 0, 1, ..., n−2 and comes back with row
// n−1, which names the departure. Row i is sighted from the station of row i−1 (row n−1 for i = 0). Angles are exterior
// and clockwise; the angle of row 0 enters only the closure. All angles are in the unit of the traverse.

/// The angle of one row and what the closure made of it.
struct angleFerme {
    double interieur = 0.0;        ///< full turn − observed angle
    double interieurCorrige = 0.0; ///< less the angular correction
    double exterieurCorrige = 0.0; ///< in [0, turn]
};

/// A closed traverse, computed. Its closures in X and Y are the sums of the legs; its angular error is the sum of the
/// interior angles − (n − 2) half turns, its angular correction that error / n.
struct resultatPolygonaleFermee : cheminement {
    std::vector<angleFerme> angles; ///< one for each of `cotes`
    double sommeInterieurs = 0.0;
};

/// Computes and corrects the traverse: the angular error equally over the stations, the closure in X and Y by length of
/// leg (compass rule), the levelling closure by mode. Gives n stations, the departure first.
/// Time and memory are linear in the rows; no row, no result.
resultatPolygonaleFermee compenserPolygonaleFermee(const stationPolygonale& depart, int mode, int unite,
                                                   const std::vector<observationPolygonale>& observations);
resultatPolygonaleFermee compenserPolygonale(const donneesPolygonaleFermee& donnees);

/// The legs as observed, from the departure: n + 1 vertices.
tracePolygonale tracePolygonaleOriginelle(const resultatPolygonaleFermee& resultat);

/// The corrected stations, the departure first and once more: n + 1 vertices, the first two equal, intended.
tracePolygonale tracePolygonaleCompensee(const resultatPolygonaleFermee& resultat);

/// The whole computation in one call.
/// @param X,Y,Z receive n + 1 values; the first n are the stations, the last is the closing sum
/// @param rapport if given, the report is appended to it
/// @param originelle,compensee whether `tracer` is to receive the polyline as observed, the corrected one
void calculPolygonaleFermee(const std::wstring& nom, double x, double y, double z, double gisement, int mode, int unite,
                            const std::vector<observationPolygonale>& observations, std::vector<double>& X,
                            std::vector<double>& Y, std::vector<double>& Z, htmlDocument* rapport,
                            bool originelle = false, bool compensee = false,
                            const std::function<void(const tracePolygonale&)>& tracer = nullptr);
