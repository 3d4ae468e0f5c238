#pragma once

#include <string>
#include <vector>

#include "calculs/nivellement.h"
#include "calculs/observationPolygonale.h"
#include "calculs/tracePolygonale.h"

// What closed and open traverses share: legs on corrected bearings, their closure shared by length of leg (compass
// rule), altitudes. The two differ in how angles are closed and in the end that is known.

/// One leg and what the computation made of it.
struct cotePolygonale {
    observationPolygonale observation; ///< as given
    double gisement = 0.0;             ///< corrected bearing, in the unit of the traverse
    double dx = 0.0, dy = 0.0;         ///< leg on that bearing
    double dxCorrige = 0.0, dyCorrige = 0.0;
    double x = 0.0, y = 0.0;       ///< station reached, summed up: the last one is the known end to the last digits
    double longueurCorrigee = 0.0; ///< between the corrected stations
};

/// A corrected station: k = 0 is the departure, k that of row k−1.
struct stationCorrigee {
    std::wstring nom;
    double x, y, z;
};

/// A traverse from its data to its stations. Values that depend on an unknown one are unknown; legs of no
/// length at all give values that are not finite, see avertissementsPolygonale.
struct cheminement {
    stationPolygonale depart;
    int unite = 0; ///< uniteAngulaire
    int mode = 0;  ///< modeNivellement
    std::vector<cotePolygonale> cotes;

    double erreurAngulaire = 0.0;
    double correctionAngulaire = 0.0; ///< share of one angle
    double longueur = 0.0;            ///< sum of observed distances
    double sommeX = 0.0;              ///< sums of the legs before correction
    double sommeY = 0.0;
    double sommeXCorrigee = 0.0; ///< after correction: what is known, to the last digits
    double sommeYCorrigee = 0.0;
    double fermetureX = 0.0; ///< 0 for a perfect traverse
    double fermetureY = 0.0;
    double fermeturePlanimetrique = 0.0; ///< length of the closure
    double fermetureRelative = 0.0;      ///< R of "1/R": length / closure; infinite when perfect
    nivellementCompense nivellement;     ///< one row for each of `cotes`

    std::vector<stationCorrigee> stations;
};

/// Fills the data of a traverse, one leg an observation.
void ouvrirCheminement(cheminement& c, const stationPolygonale& depart, int mode, int unite,
                       const std::vector<observationPolygonale>& observations);

/// Legs on their corrected bearings (dx = D·sin G, dy = D·cos G) and their sums.
void projeterCotes(cheminement& c);

/// Adds (ajoutX, ajoutY) to the legs, to each its share by length, and sums the stations up from the departure.
/// Expects the closures in X and Y; completes those that follow from them. A total length of zero leaves corrected
/// values that are not finite.
void repartirFermeture(cheminement& c, double ajoutX, double ajoutY);

/// Altitudes along the corrected legs, the last of which ends on (xFin, yFin).
void compenserAltitudes(cheminement& c, double xFin, double yFin, double deniveleeConnue);

/// The legs as observed on `gisements`, from the departure: one vertex more than legs.
tracePolygonale traceObservee(const cheminement& c, const std::vector<double>& gisements);
