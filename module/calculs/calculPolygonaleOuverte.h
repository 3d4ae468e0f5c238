#pragma once

#include <functional>
#include <string>
#include <vector>

#include "calculs/cheminement.h"

class htmlDocument;

// Open traverse: from a known station to another, each with a known bearing. Row i is the station reached by leg i; its
// angle is measured at the station before it (the departure for row 0); the last row is the arrival. The last angle is
// measured at the arrival, so n rows make n + 1 angles. All angles are in the unit of the traverse, clockwise.
//
// The departure bearing is that of the line which arrives there from its reference; the arrival bearing is that of the
// line which leaves the arrival after the last angle.

/// One angle and the bearing carried through it. The first is measured at the departure, the last at the arrival.
struct anglePorte {
    double angle = 0.0;          ///< in [0, turn], but for the last angle, which stays as given
    double gisement = 0.0;       ///< carried: grows by about half a turn a station, never brought back into one turn
    double gisementReduit = 0.0; ///< the same in [0, turn]
    double part = 0.0;           ///< share of the error to add: −(i + 1)·e
    double corrige = 0.0;        ///< gisementReduit + part
};

/// An open traverse, computed. Its closures in X and Y are known − computed and are added; its levelling closure is
/// observed − known and is subtracted; its angular correction e is its error / (n + 1).
struct resultatPolygonaleOuverte : cheminement {
    stationPolygonale arrivee;
    double dernierAngle = 0.0;
    std::vector<anglePorte> angles; ///< n + 1 of them
    double deltaX = 0.0;            ///< known, from departure to arrival
    double deltaY = 0.0;
    double deltaZ = 0.0;
};

/// Computes and corrects the traverse. The angular error, G_n − (n + 1) turns − arrival bearing, is not brought back
/// into one turn: observations are expected to carry the bearing to the arrival without wrapping. Each corrected
/// bearing takes the shares of all angles up to its own. The closure in X and Y goes by length of leg (compass rule),
/// that of the levelling by mode. Gives n + 1 stations, the departure first, the last under the arrival's name (that of
/// the last row when it has none). Time and memory are linear in the rows; no row, no result.
resultatPolygonaleOuverte compenserPolygonaleOuverte(const stationPolygonale& depart, const stationPolygonale& arrivee,
                                                     double dernierAngle, int mode, int unite,
                                                     const std::vector<observationPolygonale>& observations);
resultatPolygonaleOuverte compenserPolygonale(const donneesPolygonaleOuverte& donnees);

/// The legs on the bearings as carried, from the departure: n + 1 vertices.
tracePolygonale tracePolygonaleOriginelle(const resultatPolygonaleOuverte& resultat);

/// The corrected stations: n + 1 vertices.
tracePolygonale tracePolygonaleCompensee(const resultatPolygonaleOuverte& resultat);

/// The whole computation in one call.
/// @param X,Y,Z receive n + 1 values: the departure and the station of each row
/// @param rapport if given, the report is appended to it
/// @param originelle,compensee whether `tracer` is to receive the polyline as observed, the corrected one
void calculPolygonaleOuverte(const std::wstring& nomDepart, double xDepart, double yDepart, double zDepart,
                             double gisementDepart, const std::wstring& nomArrivee, double xArrivee, double yArrivee,
                             double zArrivee, double gisementArrivee, double dernierAngle, int mode, int unite,
                             const std::vector<observationPolygonale>& observations, std::vector<double>& X,
                             std::vector<double>& Y, std::vector<double>& Z, htmlDocument* rapport,
                             bool originelle = false, bool compensee = false,
                             const std::function<void(const tracePolygonale&)>& tracer = nullptr);
