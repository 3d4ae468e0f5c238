#include "services/listeLisp.h"

#include "aced.h"
#include "dbads.h"

void listeLisp::ajouter(const AcGePoint3d& point)
{
    const ads_point xyz{point.x, point.y, point.z};
    items.ajouter(RT3DPOINT, xyz);
}

int listeLisp::rendre() const
{
    acedRetList(items.tete());
    return RTNORM;
}

int rendreEntite(const AcDbObjectId& id)
{
    ads_name nom;
    if (id.isErased() || acdbGetAdsName(nom, id) != Acad::eOk)
        return rendreNil();
    return acedRetName(nom, RTENAME);
}

int rendreNil()
{
    acedRetNil();
    return RTNORM;
}
