#include "services/argumentsLisp.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "services/grandeur.h"
#include "services/selection.h"

#include "aced.h"
#include "dbads.h"

const wchar_t* const messageParametres = L"\nparametres incorrects.";

bool entierDe(const resbuf& item, int& valeur)
{
    if (item.restype != RTSHORT && item.restype != RTLONG)
        return false;
    valeur = item.restype == RTSHORT ? item.resval.rint : item.resval.rlong;
    return true;
}

bool reelDe(const resbuf& item, double& valeur)
{
    int entier = 0;
    if (item.restype == RTREAL)
        valeur = item.resval.rreal;
    else if (entierDe(item, entier))
        valeur = entier;
    else
        return false;
    return std::isfinite(valeur);
}

argumentsLisp::argumentsLisp() : arguments(acedGetArgs()), suivant(arguments) {}

argumentsLisp::~argumentsLisp()
{
    if (arguments)
        acutRelRb(arguments);
}

bool argumentsLisp::lireTexte(std::wstring& texte)
{
    if (!suivant || suivant->restype != RTSTR)
        return false;
    texte = suivant->resval.rstring ? suivant->resval.rstring : L"";
    suivant = suivant->rbnext;
    return true;
}

bool argumentsLisp::lireEntier(int& entier)
{
    if (!suivant || !entierDe(*suivant, entier))
        return false;
    suivant = suivant->rbnext;
    return true;
}

bool argumentsLisp::lireReel(double& reel)
{
    if (!suivant || !reelDe(*suivant, reel))
        return false;
    suivant = suivant->rbnext;
    return true;
}

bool argumentsLisp::lireLogique(bool& logique)
{
    if (!suivant || (suivant->restype != RTT && suivant->restype != RTNIL))
        return false;
    logique = suivant->restype == RTT;
    suivant = suivant->rbnext;
    return true;
}

bool argumentsLisp::lireEntite(AcDbObjectId& id)
{
    if (!suivant || suivant->restype != RTENAME || acdbGetObjectId(id, suivant->resval.rlname) != Acad::eOk)
        return false;
    suivant = suivant->rbnext;
    return true;
}

bool argumentsLisp::lireSelection(std::vector<AcDbObjectId>& ids)
{
    if (!suivant || suivant->restype != RTPICKS)
        return false;
    ids = entitesDe(suivant->resval.rlname);
    suivant = suivant->rbnext;
    return true;
}

bool argumentsLisp::lireListe(const resbuf*& premier, const resbuf*& dernier)
{
    if (!suivant || suivant->restype != RTLB)
        return false;
    int profondeur = 0;
    for (const resbuf* item = suivant; item; item = item->rbnext) {
        if (item->restype == RTLB)
            ++profondeur;
        else if (item->restype == RTLE && --profondeur == 0) {
            premier = suivant;
            dernier = item;
            suivant = item->rbnext;
            return true;
        }
    }
    return false;
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
    const int nombre = suivant->restype == RT3DPOINT ? 3 : 2;
    if (!std::all_of(xyz, xyz + nombre, [](double c) { return std::isfinite(c); }))
        return false;
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
