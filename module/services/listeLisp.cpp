#include "services/listeLisp.h"

#include "aced.h"
#include "acutmem.h"
#include "dbads.h"

listeLisp::~listeLisp()
{
    if (tete)
        acutRelRb(tete);
}

resbuf& listeLisp::suivant(int type)
{
    resbuf* const item = acutNewRb(type);
    *fin = item;
    fin = &item->rbnext;
    return *item;
}

void listeLisp::ajouter(int entier)
{
    suivant(RTLONG).resval.rlong = entier;
}

void listeLisp::ajouter(double reel)
{
    suivant(RTREAL).resval.rreal = reel;
}

void listeLisp::ajouter(const CString& texte)
{
    acutNewString(texte, suivant(RTSTR).resval.rstring);
}

void listeLisp::ajouter(const AcGePoint3d& point)
{
    auto& xyz = suivant(RT3DPOINT).resval.rpoint;
    xyz[0] = point.x;
    xyz[1] = point.y;
    xyz[2] = point.z;
}

void listeLisp::ouvrir()
{
    suivant(RTLB);
}

void listeLisp::fermer()
{
    suivant(RTLE);
}

void listeLisp::pointer()
{
    suivant(RTDOTE);
}

int listeLisp::rendre() const
{
    acedRetList(tete);
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
