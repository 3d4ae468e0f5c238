#pragma once

#include "services/chaineResbuf.h"

#include "adscodes.h"
#include "dbid.h"
#include "gepnt3d.h"

/// A list that a function of the module gives to AutoLISP, made item by item.
class listeLisp {
public:
    void ajouter(int entier) { items.ajouter(RTLONG, entier); }
    void ajouter(double reel) { items.ajouter(RTREAL, reel); }
    void ajouter(const wchar_t* texte) { items.ajouter(RTSTR, texte); }
    void ajouter(const AcGePoint3d& point);
    /// What follows, up to fermer, makes a list inside this one.
    void ouvrir() { items.ajouter(RTLB); }
    void fermer() { items.ajouter(RTLE); }
    /// The last item of a list stands behind the dot.
    void pointer() { items.ajouter(RTDOTE); }

    /// Sets it as the value of the call, nil when nothing was added. @return RTNORM.
    int rendre() const;

private:
    chaineResbuf items;
};

/// The entity as the value of the call; nil for one that is null or erased. @return RTNORM.
int rendreEntite(const AcDbObjectId& id);
/// nil as the value of the call. @return RTNORM.
int rendreNil();
