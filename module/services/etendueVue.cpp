#include "services/etendueVue.h"

#include <algorithm>

#include "services/variablesHote.h"

#include "aced.h"
#include "dbsymtb.h"

etendueVue etendueDeVue(double xCentre, double yCentre, double taille, double pixelsLargeur, double pixelsHauteur)
{
    double dx = taille / 2.0;
    double dy = taille / 2.0;
    if (pixelsLargeur > pixelsHauteur)
        dx *= pixelsLargeur / pixelsHauteur;
    else
        dy *= pixelsHauteur / pixelsLargeur;
    return {xCentre - dx, yCentre - dy, xCentre + dx, yCentre + dy};
}

bool lireEtendueVue(etendueVue& etendue)
{
    double taille = 0.0;
    AcGePoint3d centre, pixels;
    if (!lireVariable(L"VIEWSIZE", taille) || !lireVariable(L"VIEWCTR", centre) ||
        !lireVariable(L"SCREENSIZE", pixels) || pixels.x <= 0.0 || pixels.y <= 0.0)
        return false;
    etendue = etendueDeVue(centre.x, centre.y, taille, pixels.x, pixels.y);
    return true;
}

bool montrerEtendue(const etendueVue& etendue)
{
    constexpr double marge = 1.1;
    constexpr double plusPetite = 10.0; // drawing units: symbols and their texts are legible
    AcDbViewTableRecord vue;
    vue.setCenterPoint({(etendue.xMin + etendue.xMax) / 2.0, (etendue.yMin + etendue.yMax) / 2.0});
    vue.setWidth(marge * std::max(etendue.xMax - etendue.xMin, plusPetite));
    vue.setHeight(marge * std::max(etendue.yMax - etendue.yMin, plusPetite));
    return acedSetCurrentView(&vue, nullptr) == Acad::eOk;
}
