#pragma once

#include "calculs/reseau/figurePlane.h"
#include "points/exportation.h"

// Drawing glue: what an adjusted network becomes in the drawing.

struct placementReseau {
    int code = 100;
    bool points = true;    ///< looked for and determined, as points of the current table
    bool connus = false;   ///< the known ones too
    bool altitudes = true; ///< where they are known; otherwise none
    bool ellipses = false; ///< and vectors, on layers of their own
};

inline constexpr wchar_t calqueEllipses[] = L"RESEAU_ELLIPSES", calqueVecteurs[] = L"RESEAU_VECTEURS";

/// Adds points to the current table, shown by the symbol of their code, and draws ellipses and vectors, as one undo
/// step. @return the number of points added
VELA_EXPORT int placerReseau(const reseau& r, const resultatReseau& resultat, const figurePlane& figure,
                             const placementReseau& placement);
