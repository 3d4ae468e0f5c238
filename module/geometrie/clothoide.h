#pragma once

#include "geometrie/plan.h"

/// Clothoids: curves whose curvature is proportional to their length, A² = R·L.

/// Where a curve ends that starts at the origin along +X, turns to the left by `courbure` (1/radius) at its start, by
/// `variation` more for each unit of length, and is `longueur` long (which may be negative: backwards). Straights and
/// arcs are the cases without variation or curvature. Exact to 1e-12 of its length as long as it turns less than some
/// thousand times.
point2 finDeCourbe(double courbure, double variation, double longueur);

/// The elements that surveyors tabulate for a clothoid from a straight to a radius. Lengths in drawing units.
struct elementsClothoide {
    double A = 0.0, R = 0.0, L = 0.0;
    double tau = 0.0;        ///< angle turned, L / 2R, radians
    double X = 0.0, Y = 0.0; ///< its end, along and off the straight
    double deltaR = 0.0;     ///< shift of the circle away from the straight
    double Xm = 0.0;         ///< centre of the circle along the straight
    double tangenteLongue = 0.0, tangenteCourte = 0.0;
};
/// Both greater than 0.
elementsClothoide clothoideDe(double R, double L);
