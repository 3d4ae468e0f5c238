#include "implantation/vueImplantation.h"

#include "aced.h"
#include "dbsymtb.h"

namespace {

constexpr double marge = 0.5; // drawing units

void montrer(const boite& zone)
{
    if (zone.vide())
        return;
    AcDbViewTableRecord vue;
    vue.setCenterPoint({(zone.xMin + zone.xMax) / 2.0, (zone.yMin + zone.yMax) / 2.0});
    vue.setWidth(zone.xMax - zone.xMin);
    vue.setHeight(zone.yMax - zone.yMin);
    acedSetCurrentView(&vue, nullptr);
}

boite etendueDe(const travailImplantation& travail, const travailImplantation::positions& choisis)
{
    boite zone;
    for (const std::size_t i : choisis)
        if (const pointDuTravail& p = travail.points[i]; p.planConnu())
            zone.ajouter(boite::de(p.plan(), p.plan()));
    return zone.vide() ? zone : zone.elargie(marge);
}

} // namespace

void localiserPoints(travailImplantation& travail, const travailImplantation::positions& choisis)
{
    travail.dessinerApercu(choisis);
    montrer(etendueDe(travail, choisis));
    ACHAR reponse[133];
    for (;;) {
        acedUpdateDisplay();
        acedInitGet(0, L"Redessiner _ Redraw");
        if (acedGetKword(L"\nPause [Redessiner]:", reponse) != RTNORM)
            break;
        travail.dessinerApercu(choisis);
    }
    travail.effacerApercu();
    acedUpdateDisplay();
}

void apercuDuTravail(travailImplantation& travail)
{
    travail.dessinerApercu(travail.toutes());
    acedUpdateDisplay();
    ACHAR reponse[133];
    acedGetString(0, L"\nPause :", reponse);
    travail.effacerApercu();
    acedUpdateDisplay();
}
