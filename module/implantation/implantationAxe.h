#pragma once

#include "implantation/numerotationImplantation.h"
#include "implantation/pointsAxe.h"

#include "dbid.h"

class travailImplantation;

/// Staking out along an axis of the drawing.

struct parametresAxe {
    int code = 100;
    numerotationImplantation noms{L"P", 1, L""};
    bool prefixeSuivant = false; ///< the next axis takes the next prefix: A, B ... Z, AA
    choixAxe choix{false, 10.0};
};
/// Those of the last axis.
parametresAxe& parametresDuDernierAxe();

struct bilanAxe {
    std::size_t points = 0;
    std::wstring refus; ///< why there are none, in French
};
/// Makes points along a curve, adds them to the current point table with their symbols and to the job: all of them, or
/// none. Altitudes are those of the axis, else of the ground. The numbering of the parameters goes on.
bilanAxe implanterAxe(travailImplantation& travail, const AcDbObjectId& courbe, parametresAxe& parametres);
