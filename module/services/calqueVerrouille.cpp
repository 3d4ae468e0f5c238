#include "services/calqueVerrouille.h"

#include <memory>

#include "acutads.h"
#include "dbapserv.h"
#include "dbents.h"
#include "dbsymtb.h"

namespace {

bool surCalqueVerrouille(const AcDbEntity& entite)
{
    const AcDbObjectPointer<AcDbLayerTableRecord> calque(entite.layerId());
    return calque.openStatus() == Acad::eOk && calque->isLocked();
}

} // namespace

bool estVerrouille(const AcDbObjectId& id)
{
    const AcDbObjectPointer<AcDbEntity> entite(id);
    if (entite.openStatus() != Acad::eOk)
        return false;
    if (surCalqueVerrouille(*entite.object()))
        return true;
    const auto* const reference = AcDbBlockReference::cast(entite.object());
    if (!reference)
        return false;
    const std::unique_ptr<AcDbObjectIterator> it(reference->attributeIterator());
    for (it->start(); !it->done(); it->step()) {
        const AcDbObjectPointer<AcDbAttribute> attribut(it->objectId());
        if (attribut.openStatus() == Acad::eOk && surCalqueVerrouille(*attribut.object()))
            return true;
    }
    return false;
}

void signalerCalqueCourantVerrouille()
{
    const AcDbDatabase* const db = acdbHostApplicationServices()->workingDatabase();
    const AcDbObjectPointer<AcDbLayerTableRecord> calque(db ? db->clayer() : AcDbObjectId());
    if (calque.openStatus() == Acad::eOk && calque->isLocked())
        acutPrintf(L"\nLe calque courant est verrouillé : ce qui vient d'être dessiné ne pourra pas "
                   L"être modifié.");
}

void signalerVerrouilles(int nombre)
{
    if (nombre == 1)
        acutPrintf(L"\n1 objet est sur un calque verrouillé : il n'a pas été modifié.");
    else if (nombre > 1)
        acutPrintf(L"\n%d objets sont sur un calque verrouillé : ils n'ont pas été modifiés.", nombre);
}
