#pragma once

#include "adsdef.h"
#include "dbid.h"

class AcDbObject;

/// Data of the module on an object of the drawing: records in its extension dictionary, each under a name.

/// The data, for the caller to release; null when there are none.
resbuf* lireDonneesObjet(const AcDbObjectId& objet, const wchar_t* cle);

/// Puts the data in place of those there, which stay when they are refused. Locked layers do not matter: nothing of
/// what the object shows changes.
/// @return false when the object cannot be opened for write or the data cannot be in a drawing.
bool ecrireDonneesObjet(const AcDbObjectId& objet, const wchar_t* cle, const resbuf& donnees);

/// Whether an open object bears data of programs, ours or others': extended data, or an extension dictionary.
bool porteDesDonnees(const AcDbObject& objet);
