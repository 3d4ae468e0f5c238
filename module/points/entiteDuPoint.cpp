#include "points/entiteDuPoint.h"

#include "dbapserv.h"
#include "dbents.h"
#include "dbsymtb.h"

#include <memory>

void effacerEntite(const AcDbObjectId& id)
{
    const AcDbObjectPointer<AcDbEntity> entite(id, AcDb::kForWrite);
    if (entite.openStatus() == Acad::eOk)
        entite->erase();
}

bool insertionDuBloc(const AcDbObjectId& id, AcGePoint3d& position)
{
    const AcDbObjectPointer<AcDbBlockReference> bloc(id, AcDb::kForRead);
    if (bloc.openStatus() != Acad::eOk)
        return false;
    position = bloc->position();
    return true;
}

namespace {

void ajouterBlocsDe(const AcDbBlockTableRecord& espace, std::vector<AcDbObjectId>& blocs)
{
    AcDbBlockTableRecordIterator* entites = nullptr;
    if (espace.newIterator(entites) != Acad::eOk)
        return;
    const std::unique_ptr<AcDbBlockTableRecordIterator> it(entites);
    for (; !it->done(); it->step()) {
        AcDbObjectId id;
        if (it->getEntityId(id) == Acad::eOk && id.objectClass()->isDerivedFrom(AcDbBlockReference::desc()))
            blocs.push_back(id);
    }
}

} // namespace

std::vector<AcDbObjectId> blocsDuDessin()
{
    std::vector<AcDbObjectId> blocs;
    AcDbDatabase* const db = acdbHostApplicationServices()->workingDatabase();
    AcDbBlockTable* table = nullptr;
    if (!db || db->getBlockTable(table, AcDb::kForRead) != Acad::eOk)
        return blocs;
    AcDbSymbolTableIterator* definitions = nullptr;
    table->newIterator(definitions);
    const std::unique_ptr<AcDbSymbolTableIterator> it(definitions);
    for (; it && !it->done(); it->step()) {
        AcDbObjectId id;
        it->getRecordId(id);
        const AcDbObjectPointer<AcDbBlockTableRecord> espace(id);
        if (espace.openStatus() == Acad::eOk && espace->isLayout())
            ajouterBlocsDe(*espace.object(), blocs);
    }
    table->close();
    return blocs;
}
