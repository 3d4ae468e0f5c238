#pragma once

#include <string>

#include "calculs/calculPolygonaleFermee.h"
#include "calculs/calculPolygonaleOuverte.h"

// The computations take angles and bearings by one rule and bring no error back into one turn. Observations booked by
// another rule miss by whole or half turns. Each rule that is in use is tried: the one under which the traverse closes
// in angle and in position is what the user meant, and the sentence says what to type instead.

/// What an angular error near a whole or half number of turns usually means and what to type, in French; empty when the
/// error is of another size and no rule of booking explains it. A traverse that closes is not looked at further.
std::wstring conseilAngulaire(const resultatPolygonaleFermee& resultat);
std::wstring conseilAngulaire(const resultatPolygonaleOuverte& resultat);
