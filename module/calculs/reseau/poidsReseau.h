#pragma once

#include <string>
#include <vector>

#include "calculs/reseau/approcheReseau.h"

/// The variables that weight formulas see beside the user's own, for one observation: "distance" and "d1" (of the first
/// sight), "d2" (of the second one, for angles), "d3" (between the two points sighted), "angle" and "gisement" in
/// grades. Of a kind that has none of a value, the length of its sight stands for lengths, 0 for angles.
struct valeursFormule {
    double d1 = 0.0, d2 = 0.0, d3 = 0.0;
    double angle = 0.0, gisement = 0.0;
};
tableVariables variablesDe(const valeursFormule& valeurs, const tableVariables& utilisateur);
valeursFormule valeursDe(const reseau& r, const observationReseau& o, const coordonneesReseau& c);

/// The formula that weighs a kind of observation; none for kinds without.
const std::string* formuleDe(const reseau& r, genreObservation genre);

/// What is wrong with a formula, French: it does not parse, or names a variable that nobody defined (which counts 0).
/// Empty when nothing is.
std::wstring defautDeFormule(const std::string& formule, const tableVariables& utilisateur);

/// Standard deviation of each observation, in radians or metres: its formula's, its own, or the default.
/// A weight that is not positive, or no standard deviation at all, gives 0: the observation cannot take part.
std::vector<double> ecartsDesObservations(const reseau& r, const coordonneesReseau& c);
