#pragma once

#include <string>
#include <vector>

#include "dbmain.h"

class AcDbBlockTableRecord;

/// Extent of what a block holds, in its own coordinates; attributes to come do not count.
/// @return false when it shows nothing.
bool etendueBloc(const AcDbBlockTableRecord& bloc, AcDbExtents& etendue);

/// A block that users may insert.
struct blocDuDessin {
    AcDbObjectId id;
    std::wstring nom, description;
    int occurrences = 0; ///< references in model space
    AcDbExtents etendue; ///< in its own coordinates; empty when it shows nothing
    AcGePoint3d pointDeBase;

    double tailleX() const { return etendue.isEmpty() ? 0.0 : etendue.maxPoint().x - etendue.minPoint().x; }
    double tailleY() const { return etendue.isEmpty() ? 0.0 : etendue.maxPoint().y - etendue.minPoint().y; }
};

/// Of the definition of that id; without its occurrences.
blocDuDessin blocDe(const AcDbObjectId& id);

/// The blocks of the working drawing by name; layouts and those without a name of their own are left out. Cost: a walk
/// over model space and one over each block.
std::vector<blocDuDessin> blocsDuDessin();

/// Layers that have something in model space, by name.
std::vector<AcDbObjectId> calquesUtilises();
