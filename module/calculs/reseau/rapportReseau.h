#pragma once

#include "calculs/reseau/resultatReseau.h"
#include "reports/htmlDocument.h"

/// Writes what went into an adjustment, what came out, its tests and suspects, and a sketch, with the head lines.
void rapporterReseau(const reseau& r, const resultatReseau& resultat, htmlDocument& document);

/// The global test in one French sentence.
std::wstring phraseTestGlobal(const reseau& r, const resultatReseau& resultat);
/// One suspect in a French sentence: which observation, by how much, what may be behind it.
std::wstring phraseSuspect(const reseau& r, const suspectReseau& suspect);
/// A residual, or an error of a measure: in metres, or grades in the sense of the file.
double residuAffiche(const reseau& r, const observationReseau& o, double residu);
/// The sketch of the network under its heading; nothing when no point has a place.
void rapporterCroquis(const reseau& r, const resultatReseau& resultat, htmlDocument& document);
