#pragma once

#include "calculs/nivellement.h"
#include "calculs/observationPolygonale.h"
#include "calculs/tracePolygonale.h"

#include <functional>
#include <string>
#include <vector>

class htmlDocument;

// Closed traverse: a loop that starts at a known station, visits those of rows 0, 1, ..., n−2 and comes back with row
// n−1, which names the departure. Row i is sighted from the station of row i−1 (row n−1 for i = 0). Angles are exterior
// and clockwise; the angle of row 0 enters only the closure. All angles are in the unit of the traverse.

/// One row and what the computation made of it.
struct viseeFermee {
    observationPolygonale observation;
    double interieur;        ///< full turn − observed angle
    double interieurCorrige; ///< less the angular correction
    double exterieurCorrige; ///< in [0, turn]
    double gisement;         ///< bearing of the leg
    double dx, dy;           ///< leg on that bearing
    double dxCorrige, dyCorrige;
    double x, y; ///< station reached, summed up: the last row comes back to the departure to the last digits
    double longueurCorrigee; ///< between the corrected stations
};

/// A corrected station: k = 0 is the departure, k that of row k−1.
struct stationCorrigee {
    std::wstring nom;
    double x, y, z;
};

/// All of a closed traverse, from its data to its stations. Values that depend on an unknown one (1e38) are unknown;
/// legs of no length at all give values that are not finite, see avertissementsPolygonale.
struct resultatPolygonaleFermee {
    stationPolygonale depart;
    int unite = 0; ///< uniteAngulaire
    int mode = 0;  ///< modeNivellement
    std::vector<viseeFermee> visees;

    double sommeInterieurs = 0.0;
    double erreurAngulaire = 0.0;     ///< sum of interior angles − (n − 2) half turns
    double correctionAngulaire = 0.0; ///< of one station: the error / n
    double longueur = 0.0;            ///< sum of observed distances
    double fermetureX = 0.0;          ///< sums of the legs, 0 for a perfect loop
    double fermetureY = 0.0;
    double fermeturePlanimetrique = 0.0; ///< length of the closure
    double fermetureRelative =
        0.0; ///< R of "1/R": length of the traverse / length of the closure; infinite when perfect
    nivellementCompense nivellement; ///< one row for each of `visees`

    std::vector<stationCorrigee> stations; ///< n of them
};

/// Computes and corrects the traverse: the angular error equally over the stations, the closure in X and Y by length of
/// leg (compass rule), the levelling closure by mode. Time and memory are linear in the rows; no row, no result.
resultatPolygonaleFermee compenserPolygonaleFermee(const stationPolygonale& depart, int mode, int unite,
                                                   const std::vector<observationPolygonale>& observations);

/// The legs as observed, from the departure: n + 1 vertices.
tracePolygonale tracePolygonaleOriginelle(const stationPolygonale& depart, int unite,
                                          const std::vector<observationPolygonale>& observations);

/// The corrected stations, the departure first and once more: n + 1 vertices, the first two equal, intended.
tracePolygonale tracePolygonaleCompensee(const resultatPolygonaleFermee& resultat);

/// The whole computation in one call, for the dialog.
/// @param X,Y,Z receive n + 1 values; the first n are the stations, the last is the closing sum
/// @param rapport if given, the report is appended to it
/// @param tracer if given, receives the polyline as observed, then the corrected one, told apart by their colour
void calculPolygonaleFermee(const std::wstring& nom, double x, double y, double z, double gisement, int mode, int unite,
                            const std::vector<observationPolygonale>& observations, std::vector<double>& X,
                            std::vector<double>& Y, std::vector<double>& Z, htmlDocument* rapport,
                            const std::function<void(const tracePolygonale&)>& tracer = nullptr);
