#include "points/lispPoints.h"

#include "points/codeValable.h"
#include "points/etendueDesPoints.h"
#include "points/projetDansDessin.h"
#include "services/argumentsLisp.h"
#include "services/etendueVue.h"
#include "services/listeLisp.h"

#include "aced.h"

int lispAddPt()
{
    argumentsLisp arguments;
    std::wstring nom;
    AcGePoint3d position;
    int code = 1;
    if (!arguments.lireTexte(nom) || !arguments.lirePoint(position) ||
        (!arguments.fini() && !arguments.lireEntier(code)) || !arguments.fini() || !codeValable(code))
        return refuserParametres();
    listePointsDuDessin* const table = tableCourante();
    if (!table)
        return rendreNil();
    pointDuDessin point;
    point.setParams(nom.c_str(), position, code);
    table->Ajouter(point);
    return acedRetT();
}

int lispMaxnum()
{
    if (!argumentsLisp().fini())
        return refuserParametres();
    const listePointsDuDessin* const table = tableCourante();
    return table ? acedRetInt(table->getMaxNum() + 1) : rendreNil();
}

int lispZoomLeve()
{
    if (!argumentsLisp().fini())
        return refuserParametres();
    const listePointsDuDessin* const table = tableCourante();
    if (!table)
        return RTNORM;
    const auto etendue = etendueDesPoints(*table);
    if (etendue)
        montrerEtendue(*etendue);
    else
        acutPrintf(L"\nPas de points dans cette table");
    return RTNORM;
}
