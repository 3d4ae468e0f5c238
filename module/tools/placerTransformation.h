#pragma once

#include <memory>
#include <span>
#include <vector>

#include "tools/transformationPlane.h"

#include "dbents.h"
#include "gemat3d.h"

class projetsTopo;

/// What a plane transformation does to a drawing; altitudes stay.

AcGeMatrix3d matriceDe(const transformationPlane& transformation);

/// Copies of entities as they will be, for a preview: at most `auPlus`; those that cannot follow are left out.
std::vector<std::unique_ptr<AcDbEntity>> copiesTransformees(std::span<const AcDbObjectId> ids,
                                                            const AcGeMatrix3d& matrice, std::size_t auPlus);

struct bilanTransformation {
    int objets = 0, points = 0;
    int refuses = 0; ///< entities that no such transformation can be applied to
};

/// Transforms entities, and points with their symbols, which keep their size and stay readable: a symbol among the
/// entities stands for its point. With `tousPoints` all points of the current table go too. What is on locked layers
/// stays, and is told at the command line. One step of undo.
bilanTransformation placerTransformation(projetsTopo& projet, std::span<const AcDbObjectId> ids, bool tousPoints,
                                         const transformationPlane& transformation);
