#pragma once

#include "calculs/reseau/resultatReseau.h"
#include "calculs/reseau/systemeReseau.h"

/// Looks for faults: the observation whose absence lets s0 fall most, then the next one as if the first were gone, as
/// long as chance alone would hardly leave such a misfit. No factorisation for each: one solution with the factor there
/// is. Fills `suspects` and marks the observations.
void chercherSuspects(const reseau& r, const systemeReseau& s, const coordonneesReseau& c, resultatReseau& resultat);

/// What would make a measure be off by `faute`: a whole metre, half a turn, another point, a wrong sign... French,
/// empty when nothing does. @param tolerance how well the fault is known
std::wstring causeProbable(const reseau& r, const resultatReseau& resultat, const observationReseau& o,
                           const coordonneesReseau& c, double faute, double tolerance);
