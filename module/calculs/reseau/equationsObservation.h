#pragma once

#include <vector>

#include "calculs/reseau/reseau.h"

/// Places of points while they are looked for.
struct coordonneesReseau {
    std::vector<double> x, y, z;      ///< by point; z is 0 where no height takes part
    std::vector<double> orientations; ///< by set: bearing of its zero
};

/// What the value of an observation depends on. `rang` of a point is 3·position for x, then y, z; orientations follow
/// all points.
struct equationObservation {
    static constexpr int plusLongue = 7;
    int nombre = 0;
    int rang[plusLongue];
    double derivee[plusLongue];
    double calcul = 0.0;  ///< the observation as it would be without error
    double ecart = 0.0;   ///< measure less `calcul`, of angles within half a turn
    bool possible = true; ///< false: its points are at one place
};

equationObservation equationDe(const observationReseau& o, const coordonneesReseau& c);
