#include "points/entiteDuPoint.h"

#include "dbents.h"

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
