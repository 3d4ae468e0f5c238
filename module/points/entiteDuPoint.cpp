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

void deplacerPointHote(const AcDbObjectId& id, const AcGePoint3d& position)
{
    if (id.isNull())
        return;
    const AcDbObjectPointer<AcDbPoint> point(id, AcDb::kForRead);
    if (point.openStatus() != Acad::eOk)
        return;
    const AcGePoint3d actuelle = point->position();
    const bool enPlace = actuelle.x == position.x && actuelle.y == position.y && actuelle.z == position.z;
    if (!enPlace && point->upgradeOpen() == Acad::eOk)
        point->setPosition(position);
}
