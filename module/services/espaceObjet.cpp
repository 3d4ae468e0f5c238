#include "services/espaceObjet.h"

#include "dbapserv.h"
#include "dbsymtb.h"

namespace {

AcDbObjectId espaceObjet(AcDbDatabase* db)
{
    const AcDbObjectPointer<AcDbBlockTable> blocs(db->blockTableId());
    AcDbObjectId id;
    if (blocs.openStatus() == Acad::eOk)
        blocs->getAt(ACDB_MODEL_SPACE, id);
    return id;
}

} // namespace

AcDbObjectId ajouterEspaceObjet(std::unique_ptr<AcDbEntity> entite)
{
    AcDbDatabase* const db = acdbHostApplicationServices()->workingDatabase();
    if (!db || !entite)
        return {};
    const AcDbObjectPointer<AcDbBlockTableRecord> espace(espaceObjet(db), AcDb::kForWrite);
    AcDbObjectId id;
    if (espace.openStatus() != Acad::eOk || espace->appendAcDbEntity(id, entite.get()) != Acad::eOk)
        return {};
    entite.release()->close();
    return id;
}
