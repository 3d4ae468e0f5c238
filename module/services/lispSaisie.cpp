#include "services/lispSaisie.h"

#include "services/argumentsLisp.h"
#include "services/grandeur.h"
#include "services/listeLisp.h"

#include "aced.h"
#include "acutmem.h"

int lispKGetpt()
{
    argumentsLisp arguments;
    std::wstring message;
    AcGePoint3d depart;
    if (!arguments.lireTexte(message))
        return refuserParametres();
    const bool avecDepart = arguments.lirePoint(depart);
    if (!arguments.fini())
        return refuserParametres();
    const ads_point base{depart.x, depart.y, depart.z == inconnu ? 0.0 : depart.z};
    ads_point point;
    if (acedGetPoint(avecDepart ? base : nullptr, message.c_str(), point) != RTNORM)
        return rendreNil();
    return acedRetPoint(point);
}

int lispWaitUser()
{
    if (!argumentsLisp().fini())
        return refuserParametres();
    acutPrintf(L"\nAppuyez sur une touche pour continuer ");
    int type = 0;
    resbuf recu{};
    return acedGrRead(0, &type, &recu) == RTNORM ? acedRetT() : rendreNil();
}
