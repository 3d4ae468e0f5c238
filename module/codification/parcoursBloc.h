#pragma once

#include <memory>

#include "services/definitionsDessin.h"

#include "dbmain.h"
#include "dbsymtb.h"

/// Calls `pour` with each entity of a block, open for reading, in drawing order.
template <typename Pour>
void pourChaqueEntite(const AcDbBlockTableRecord& bloc, Pour&& pour)
{
    AcDbBlockTableRecordIterator* entites = nullptr;
    if (bloc.newIterator(entites) != Acad::eOk)
        return;
    const std::unique_ptr<AcDbBlockTableRecordIterator> it(entites);
    for (AcDbObjectId id; !it->done(); it->step()) {
        it->getEntityId(id);
        const AcDbObjectPointer<AcDbEntity> entite(id);
        if (entite.openStatus() == Acad::eOk)
            pour(*entite.object());
    }
}

/// The same in the model space of a drawing.
template <typename Pour>
void pourChaqueEntite(AcDbDatabase& dessin, Pour&& pour)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> espace(blocNomme(dessin, ACDB_MODEL_SPACE));
    if (espace.openStatus() == Acad::eOk)
        pourChaqueEntite(*espace.object(), pour);
}
