#pragma once

#include <memory>

#include "dbents.h"

/// Calls `prendre` with each vertex of an old-style polyline, of the drawing or not in one yet: those that only shape
/// a spline as well.
template <typename Sommet, typename Prendre>
void surSommets(const AcDbVertexCurve& ligne, Prendre&& prendre)
{
    const std::unique_ptr<AcDbObjectIterator> it(ligne.vertexIterator());
    for (it->start(); !it->done(); it->step()) {
        if (const auto* const sommet = Sommet::cast(it->entity())) {
            prendre(*sommet);
            continue;
        }
        const AcDbObjectPointer<Sommet> ouvert(it->objectId());
        if (ouvert.openStatus() == Acad::eOk)
            prendre(*ouvert.object());
    }
}
