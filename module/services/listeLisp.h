#pragma once

#include "adsdef.h"
#include "afx.h"
#include "dbid.h"
#include "gepnt3d.h"

/// A list that a function of the module gives to AutoLISP, made item by item.
class listeLisp {
public:
    listeLisp() = default;
    ~listeLisp();
    listeLisp(const listeLisp&) = delete;
    listeLisp& operator=(const listeLisp&) = delete;

    void ajouter(int entier);
    void ajouter(double reel);
    void ajouter(const CString& texte);
    void ajouter(const wchar_t* texte) { ajouter(CString(texte)); }
    void ajouter(const AcGePoint3d& point);
    /// What follows, up to fermer, makes a list inside this one.
    void ouvrir();
    void fermer();
    /// The last item of a list stands behind the dot.
    void pointer();

    /// Sets it as the value of the call, nil when nothing was added. @return RTNORM.
    int rendre() const;

private:
    resbuf& suivant(int type);

    resbuf* tete = nullptr;
    resbuf** fin = &tete;
};

/// The entity as the value of the call; nil for one that is null or erased. @return RTNORM.
int rendreEntite(const AcDbObjectId& id);
/// nil as the value of the call. @return RTNORM.
int rendreNil();
