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

/// Counts of entities, but for the points; what stays is not in `objets`.
struct bilanTransformation {
    int objets = 0, points = 0;
    int ellipses = 0;    ///< become entities of another kind, among the objets
    int approches = 0;   ///< follow as near as they can, among the objets
    int refuses = 0;     ///< cannot follow
    int verrouilles = 0; ///< are on locked layers
};

/// What would become of entities, so that it can be told before; without the points.
bilanTransformation prevoirTransformation(const projetsTopo& projet, std::span<const AcDbObjectId> ids,
                                          const transformationPlane& transformation);

/// Transforms entities, and points with their symbols, which keep their size and stay readable: a symbol among the
/// entities stands for its point. With `tousPoints` all points of the current table go too. What is on locked layers
/// stays, and is told at the command line. One step of undo.
bilanTransformation placerTransformation(projetsTopo& projet, std::span<const AcDbObjectId> ids, bool tousPoints,
                                         const transformationPlane& transformation);
