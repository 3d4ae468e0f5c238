#include "codification/donneesEtendues.h"
#include "codification/lispSymboles.h"
#include "services/argumentsLisp.h"
#include "services/chaineResbuf.h"
#include "services/listeLisp.h"

#include "aced.h"
#include "dbads.h"
#include "dbapserv.h"
#include "dbmain.h"

/// (sxd ...): extended data from a list of AutoLISP.

namespace {

// Group codes of an entity list.
constexpr int nomEntite = -1;
constexpr int debutDonneesEtendues = -3;

bool estTexte(int code)
{
    return code == 1000 || code == 1002 || code == 1003 || code == 1005;
}

/// Adds the item of extended data of a value. @return false when the value is not of the kind that the code takes.
bool ajouterSimple(chaineResbuf& donnees, int code, const resbuf& valeur)
{
    double reel = 0.0;
    int entier = 0;
    if (estTexte(code))
        return valeur.restype == RTSTR && donnees.ajouter(code, valeur.resval.rstring);
    if (code >= 1040 && code <= 1042)
        return reelDe(valeur, reel) && donnees.ajouter(code, reel);
    if (!entierDe(valeur, entier))
        return false;
    if (code == 1070)
        return entier >= -32768 && entier <= 32767 && donnees.ajouter(code, static_cast<short>(entier));
    return code == 1071 && donnees.ajouter(code, entier);
}

bool estPoint(int code)
{
    return code >= 1010 && code <= 1013;
}

/// Reads a point, or three numbers, up to `fin`. @return false when there is neither.
bool lirePoint(const resbuf*& item, const resbuf* fin, ads_point xyz)
{
    if (item->restype == RT3DPOINT) {
        ads_point_set(item->resval.rpoint, xyz);
        item = item->rbnext;
        return true;
    }
    for (int i = 0; i < 3; ++i) {
        if (item == fin || !reelDe(*item, xyz[i]))
            return false;
        item = item->rbnext;
    }
    return true;
}

/// Adds one pair or list (code x y z), from behind its code to its end. @return false when it makes no item.
bool ajouterItem(chaineResbuf& donnees, int code, const resbuf*& item, const resbuf* fin)
{
    if (item != fin && item->restype == RTDOTE)
        item = item->rbnext;
    if (item == fin)
        return false;
    if (estPoint(code)) {
        ads_point xyz{};
        return lirePoint(item, fin, xyz) && donnees.ajouter(code, xyz);
    }
    const resbuf* const valeur = item;
    item = item->rbnext;
    return ajouterSimple(donnees, code, *valeur);
}

/// Adds the items of a list of pairs. @return false at the first that is no pair.
bool lireDonnees(const resbuf* premier, const resbuf* dernier, chaineResbuf& donnees)
{
    const resbuf* item = premier->rbnext;
    while (item != dernier) {
        int code = 0;
        if (item->restype != RTLB || item->rbnext == dernier || !entierDe(*item->rbnext, code))
            return false;
        item = item->rbnext->rbnext;
        if (!ajouterItem(donnees, code, item, dernier) || item == dernier || item->restype != RTLE)
            return false;
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
    chaineResbuf entite;
    entite.ajouterNom(nomEntite, nom);
    entite.ajouter(debutDonneesEtendues);
    entite.ajouter(AcDb::kDxfRegAppName, applicationVelaplus);
    if (premier && !lireDonnees(premier, dernier, entite))
        return refuserParametres();
    if (AcDbDatabase* const db = id.database())
        declarerVelaplus(*db);
    const int statut = acdbEntMod(entite.tete());
    if (statut == RTNORM)
        return acedRetT();
    acutPrintf(L"\nErreur de entmod=%d", statut);
    return rendreNil();
}
