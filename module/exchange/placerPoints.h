#pragma once

#include <span>
#include <string>
#include <vector>

#include "exchange/ajoutPoints.h"

/// Points of a table and their symbols in the working drawing, both ways, with a progress dialog. The user may stop;
/// what was done until then stands, in the table as in the drawing. One undo group each.

struct bilanPlacement {
    int dessines = 0;
    int sansSymbole = 0; ///< no place, or no block
    int verrouilles = 0; ///< whose symbol is on a locked layer, and stays as it is
    bool arrete = false; ///< by the user
};

/// French sentences on the points that were not drawn; none when all were.
VELA_EXPORT std::vector<std::wstring> phrasesNonPlaces(const bilanPlacement& bilan);

/// Draws the symbols of points, or brings those they have in line with them. Observations that wait go onto
/// them.
VELA_EXPORT bilanPlacement placerPoints(listePointsDuDessin& table, std::span<const int> places,
                                        observationsEnAttente& observations);

struct bilanReleve {
    int lus = 0;
    int sansSymbole = 0; ///< points that were never drawn: they stay, behind the others
    bool arrete = false; ///< by the user: the table is as it was
};

/// Makes the table what the drawing shows: one point for each symbol.
bilanReleve releverSymboles(listePointsDuDessin& table);
