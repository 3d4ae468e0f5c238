#pragma once

#include <string>
#include <vector>

#include "dbid.h"

/// What a user chose to make a terrain model from. What became of it in the drawing is gathered anew each time.
struct sourcesTerrain {
    std::vector<AcDbObjectId> objets;  ///< points, symbols, texts, lines
    std::vector<AcDbObjectId> limites; ///< closed lines
    std::vector<AcDbObjectId> trous;   ///< closed lines
    std::vector<std::wstring> tables;  ///< names of point tables
    double areteMax = 0.0;             ///< as in semisTerrain
};
