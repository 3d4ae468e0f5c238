#include "services/espaceObjet.h"

#include "dbapserv.h"
#include "dbsymtb.h"

AcDbObjectId espaceObjetDuDessin()
{
    AcDbDatabase* const db = acdbHostApplicationServices()->workingDatabase();
    if (!db)
        return {};
    const AcDbObjectPointer<AcDbBlockTable> blocs(db->blockTableId());
    AcDbObjectId id;
    if (blocs.openStatus() == Acad::eOk)
        blocs->getAt(ACDB_MODEL_SPACE, id);
    return id;
}

AcDbObjectId ajouterEspaceObjet(std::unique_ptr<AcDbEntity> entite)
{
    if (!entite)
        return {};
    const AcDbObjectPointer<AcDbBlockTableRecord> espace(espaceObjetDuDessin(), AcDb::kForWrite);
    AcDbObjectId id;
    if (espace.openStatus() != Acad::eOk || espace->appendAcDbEntity(id, entite.get()) != Acad::eOk)
        return {};
    entite.release()->close();
    return id;
}
