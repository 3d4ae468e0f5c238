#pragma once

#include <string>

#include "calculs/calculPolygonaleFermee.h"
#include "calculs/calculPolygonaleOuverte.h"

// The computations take angles and bearings by one rule and bring no error back into one turn. Observations booked by
// another rule miss by whole or half turns, and so do those with one angle read half a turn off. What explains them
// (hypothesesAngulaires) is told with what to type instead. Where several explanations are as good, each is told, as
// "Soit ...": only the user can know.

/// What may be behind a traverse that does not close, in French; empty when it closes, and when nothing explains it
/// and its angular error is near no whole or half number of turns.
std::wstring conseilAngulaire(const resultatPolygonaleFermee& resultat);
std::wstring conseilAngulaire(const resultatPolygonaleOuverte& resultat);
