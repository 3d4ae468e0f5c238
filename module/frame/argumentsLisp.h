#pragma once

#include "adsdef.h"
#include "afx.h"
#include "gepnt3d.h"

/// The arguments of the AutoLISP function being called, read one after the other. A read that finds another kind of
/// value answers false and stays in front of it.
class argumentsLisp {
public:
    argumentsLisp();
    ~argumentsLisp();
    argumentsLisp(const argumentsLisp&) = delete;
    argumentsLisp& operator=(const argumentsLisp&) = delete;

    bool fini() const { return suivant == nullptr; }
    bool lireTexte(CString& texte);
    bool lireEntier(int& entier);
    /// A list of two or three numbers; the altitude of a list of two is 1e38, unknown.
    bool lirePoint(AcGePoint3d& point);

private:
    bool lirePointEnListe(AcGePoint3d& point);

    resbuf* chaine;
    const resbuf* suivant;
};

/// What a function prints when its arguments are not those it takes.
extern const wchar_t* const messageParametres;

/// Prints it and gives nil. @return RTNORM.
int refuserParametres();
