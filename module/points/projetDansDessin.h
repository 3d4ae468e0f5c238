#pragma once

#include "points/exportation.h"
#include "points/projetsTopo.h"

class AcDbDatabase;

/// The project in use and its place in the drawing: layer "0", its extension dictionary, the xrecord
/// "QUARVEL4_VELA_DATA".

/// The project of the drawing in hand, handed over by the family's main module, which owns it; null until then.
extern VELA_EXPORT projetsTopo* tablesPoints;

/// For users, where there is none.
inline constexpr const wchar_t* projetAbsent =
    L"le dessin n'a pas de projet topographique : le module principal n'est pas chargé.";

/// Whether saving a drawing stores the project in it. When it is 0, saving stores an empty record instead.
extern VELA_EXPORT int sauverInfosTopo;

/// Makes `projet` (null: none) the project in use. With `lire` not zero it is read at once from `db` (null: the working
/// drawing): a project without stored data becomes a single empty table.
VELA_EXPORT void setSrcInfosTopo(AcDbDatabase* db, projetsTopo* projet, int sauver, int lire);

/// Empties what the working drawing stores.
VELA_EXPORT void purgeInfosTopo();

/// Whether the last save of a drawing stored its project whole; 1 when there was none.
VELA_EXPORT int infosTopoEnregistrees();

/// Stores the project in use in the working drawing; without a project the drawing stays as it is.
void enregistrerInfosTopo();

/// The current table of the project in use, or null without a project.
listePointsDuDessin* tableCourante();
