#pragma once

#include <string>
#include <vector>

#include "services/Uncopyable.h"

#include "adsdef.h"
#include "dbid.h"
#include "gepnt3d.h"

/// The arguments of the AutoLISP function being called, read one after the other. A read that finds another kind of
/// value answers false and stays in front of it. A number that is not finite is none.
class argumentsLisp : Uncopyable {
public:
    argumentsLisp();
    ~argumentsLisp();

    bool fini() const { return suivant == nullptr; }
    bool lireTexte(std::wstring& texte);
    bool lireEntier(int& entier);
    bool lireReel(double& reel);
    /// T or nil.
    bool lireLogique(bool& logique);
    bool lireEntite(AcDbObjectId& id);
    /// The entities of a selection set, those erased meanwhile left out.
    bool lireSelection(std::vector<AcDbObjectId>& ids);
    /// A list: `premier` is its RTLB, `dernier` its RTLE. They live as long as this object.
    bool lireListe(const resbuf*& premier, const resbuf*& dernier);
    /// A list of two or three numbers; the altitude of a list of two is `inconnu`.
    bool lirePoint(AcGePoint3d& point);

private:
    bool lirePointEnListe(AcGePoint3d& point);

    resbuf* arguments;
    const resbuf* suivant;
};

/// A whole number. @return false when the item is something else.
bool entierDe(const resbuf& item, int& valeur);
/// A finite number of any kind. @return false when the item is something else.
bool reelDe(const resbuf& item, double& valeur);

/// What a function prints when its arguments are not those it takes.
extern const wchar_t* const messageParametres;

/// Prints it and gives nil. @return RTNORM.
int refuserParametres();
