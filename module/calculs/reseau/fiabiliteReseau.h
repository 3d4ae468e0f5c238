#pragma once

#include <vector>

#include "calculs/reseau/espaceLibre.h"
#include "calculs/reseau/resultatReseau.h"

// Precision and reliability, from the selected inverse of the system (see matriceNormale::inverser).

/// What one observation tells of the others: (P·Qv·P) of its place, its g = e·P·v and h, see suspects.
struct controleObservation {
    double g = 0.0; ///< weighted residual
    double h = 0.0; ///< how much of its weight is checked by the others
};
controleObservation controleDe(const systemeReseau& s, int place);

/// Whether what would remain of a sum of squares is known: a fault that makes up nearly all of it has bent the network
/// too far for its fall to be linear.
inline bool chuteConnue(double somme, double chute)
{
    return somme - chute > 1e-9 * somme;
}

/// Redundancy number of each observation of the system, 0 to 1.
std::vector<double> redondancesDe(const systemeReseau& s);

/// The largest standard ellipse of a covariance matrix. The bearing runs clockwise from north, within half a turn.
ellipseErreur ellipseDe(double sxx, double syy, double sxy);

/// Standard deviations and ellipses of points.
void rendrePrecisions(const reseau& r, const systemeReseau& s, const espaceLibre& libre, resultatReseau& resultat);
/// Redundancies, standardised residuals, detectable faults and their effects.
void rendreFiabilite(const reseau& r, const systemeReseau& s, const espaceLibre& libre, resultatReseau& resultat);
/// Between which values s0 is as announced, and whether it is.
void bornesS0(const reseau& r, resultatReseau& resultat);
