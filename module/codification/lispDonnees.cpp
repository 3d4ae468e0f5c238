#include <memory>

#include "codification/donneesEtendues.h"
#include "codification/lispSymboles.h"
#include "services/argumentsLisp.h"
#include "services/listeLisp.h"

#include "aced.h"
#include "acutmem.h"
#include "dbads.h"
#include "dbapserv.h"
#include "dbmain.h"

/// (sxd ...): extended data from a list of AutoLISP.

namespace {

struct liberation {
    void operator()(resbuf* chaine) const { acutRelRb(chaine); }
};
using chaineLue = std::unique_ptr<resbuf, liberation>;

constexpr int debutDonneesEtendues = -3; // group code of an entity list

bool estTexte(int code)
{
    return code == 1000 || code == 1002 || code == 1003 || code == 1005;
}

/// The item of extended data of a value; null when the value is not of the kind that the code takes.
resbuf* itemSimple(int code, const resbuf& valeur)
{
    double reel = 0.0;
    int entier = 0;
    if (estTexte(code))
        return valeur.restype == RTSTR ? acutBuildList(code, valeur.resval.rstring, 0) : nullptr;
    if (code >= 1040 && code <= 1042)
        return reelDe(valeur, reel) ? acutBuildList(code, reel, 0) : nullptr;
    if (!entierDe(valeur, entier))
        return nullptr;
    if (code == 1070)
        return entier >= -32768 && entier <= 32767 ? acutBuildList(code, entier, 0) : nullptr;
    return code == 1071 ? acutBuildList(code, long{entier}, 0) : nullptr;
}

bool estPoint(int code)
{
    return code >= 1010 && code <= 1013;
}

/// One pair or list (code x y z), from behind its code to its end. @return null when it makes no item.
resbuf* itemDe(int code, const resbuf*& item, const resbuf* fin)
{
    if (item != fin && item->restype == RTDOTE)
        item = item->rbnext;
    if (item == fin)
        return nullptr;
    if (!estPoint(code)) {
        const resbuf* const valeur = item;
        item = item->rbnext;
        return itemSimple(code, *valeur);
    }
    ads_point xyz{};
    if (item->restype == RT3DPOINT) {
        ads_point_set(item->resval.rpoint, xyz);
        item = item->rbnext;
        return acutBuildList(code, xyz, 0);
    }
    for (double& coordonnee : xyz) {
        if (item == fin || !reelDe(*item, coordonnee))
            return nullptr;
        item = item->rbnext;
    }
    return acutBuildList(code, xyz, 0);
}

/// Appends the items of a list of pairs behind `*suite`. @return false at the first that is no pair.
bool lireDonnees(const resbuf* premier, const resbuf* dernier, resbuf** suite)
{
    const resbuf* item = premier->rbnext;
    while (item != dernier) {
        int code = 0;
        if (item->restype != RTLB || item->rbnext == dernier || !entierDe(*item->rbnext, code))
            return false;
        item = item->rbnext->rbnext;
        *suite = itemDe(code, item, dernier);
        if (!*suite || item == dernier || item->restype != RTLE)
            return false;
        suite = &(*suite)->rbnext;
        item = item->rbnext;
    }
    return true;
}

} // namespace

int lispSxd()
{
    argumentsLisp arguments;
    AcDbObjectId id;
    bool logique = true;
    const resbuf *premier = nullptr, *dernier = nullptr;
    ads_name nom;
    if (!arguments.lireEntite(id) || !(arguments.lireListe(premier, dernier) || arguments.lireLogique(logique)) ||
        (!premier && logique) || !arguments.fini() || acdbGetAdsName(nom, id) != Acad::eOk)
        return refuserParametres();
    const chaineLue entite(acutBuildList(-1, nom, debutDonneesEtendues, AcDb::kDxfRegAppName, applicationVelaplus, 0));
    resbuf* const application = entite->rbnext->rbnext;
    if (premier && !lireDonnees(premier, dernier, &application->rbnext))
        return refuserParametres();
    if (AcDbDatabase* const db = id.database())
        declarerVelaplus(*db);
    const int statut = acdbEntMod(entite.get());
    if (statut == RTNORM)
        return acedRetT();
    acutPrintf(L"\nErreur de entmod=%d", statut);
    return rendreNil();
}
