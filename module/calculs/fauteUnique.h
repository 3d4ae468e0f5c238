#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "calculs/calculPolygonaleFermee.h"
#include "calculs/calculPolygonaleOuverte.h"

// One gross fault that would explain by itself why a traverse does not close. An angle off by the angular error turns
// all that follows about its station: the perpendicular bisector of the closing vector passes there. A length off moves
// all that follows along its leg: the leg is parallel to the closing vector.

struct fauteUnique {
    bool angulaire = false;  ///< the angle of the row, else its distance
    std::size_t rang = 0;    ///< of the row, from 0; for an open traverse, that after the last is the last angle
    double correction = 0.0; ///< to add to what was observed: unit of the traverse, or drawing units
    double fermeture = 0.0;  ///< what is left in position once it is added
};

/// The fault that closes the traverse where no other comes near it. None for a traverse that closes: to speak, an
/// angular error or a closure must be beyond what its own other closure lets expect. Time is linear in the rows.
std::optional<fauteUnique> chercherFaute(const resultatPolygonaleFermee& r);
std::optional<fauteUnique> chercherFaute(const resultatPolygonaleOuverte& r);

/// The same in a French sentence, with what would have been expected; empty without one.
std::wstring conseilFaute(const resultatPolygonaleFermee& r);
std::wstring conseilFaute(const resultatPolygonaleOuverte& r);
