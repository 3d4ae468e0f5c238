#include "frame/etendueVue.h"

#include "frame/variablesHote.h"

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
