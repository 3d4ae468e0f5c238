#include "frame/argumentsLisp.h"

#include "aced.h"
#include "calculs/grandeur.h"

#include <array>

const wchar_t* const messageParametres = L"\nparametres incorrects.";

namespace {

bool reelDe(const resbuf& item, double& valeur)
{
    switch (item.restype) {
    case RTREAL:
        valeur = item.resval.rreal;
        return true;
    case RTSHORT:
        valeur = item.resval.rint;
        return true;
    case RTLONG:
        valeur = item.resval.rlong;
        return true;
    default:
        return false;
    }
}

} // namespace

argumentsLisp::argumentsLisp() : chaine(acedGetArgs()), suivant(chaine) {}

argumentsLisp::~argumentsLisp()
{
    if (chaine)
        acutRelRb(chaine);
}

bool argumentsLisp::lireTexte(CString& texte)
{
    if (!suivant || suivant->restype != RTSTR)
        return false;
    texte = suivant->resval.rstring;
    suivant = suivant->rbnext;
    return true;
}

bool argumentsLisp::lireEntier(int& entier)
{
    if (!suivant || (suivant->restype != RTSHORT && suivant->restype != RTLONG))
        return false;
    entier = suivant->restype == RTSHORT ? suivant->resval.rint : suivant->resval.rlong;
    suivant = suivant->rbnext;
    return true;
}

bool argumentsLisp::lirePoint(AcGePoint3d& point)
{
    if (!suivant)
        return false;
    if (suivant->restype == RTLB)
        return lirePointEnListe(point);
    if (suivant->restype != RTPOINT && suivant->restype != RT3DPOINT)
        return false;
    const auto& xyz = suivant->resval.rpoint;
    point.set(xyz[0], xyz[1], suivant->restype == RT3DPOINT ? xyz[2] : inconnu);
    suivant = suivant->rbnext;
    return true;
}

/// The host hands over a list of integers as a list, where it makes a point of one of reals.
bool argumentsLisp::lirePointEnListe(AcGePoint3d& point)
{
    std::array<double, 3> xyz{0.0, 0.0, inconnu};
    std::size_t nombre = 0;
    const resbuf* item = suivant->rbnext;
    for (; item && item->restype != RTLE; item = item->rbnext)
        if (nombre == xyz.size() || !reelDe(*item, xyz[nombre++]))
            return false;
    if (!item || nombre < 2)
        return false;
    point.set(xyz[0], xyz[1], xyz[2]);
    suivant = item->rbnext;
    return true;
}

int refuserParametres()
{
    acutPrintf(messageParametres);
    acedRetNil();
    return RTNORM;
}
