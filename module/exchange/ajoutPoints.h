#pragma once

#include <map>
#include <span>
#include <string>

#include "points/exportation.h"
#include "points/pointXYZ.h"

class listePointsDuDessin;

/// What becomes of points whose name the table has already.
enum class nomsExistants {
    ajouter,     ///< they are added all the same: nothing forbids equal names
    renumeroter, ///< they are added under numbers after the largest one, of the table and of the points
    remplacer,   ///< they take the place of the table's points, whose symbols follow
    laisser      ///< they are left out
};

/// Texts to be written on the symbols of points that are not drawn yet, by the points' places in their table.
using observationsEnAttente = std::map<int, std::wstring>;

struct bilanAjout {
    int ajoutes = 0, renumerotes = 0, remplaces = 0, laisses = 0;
    int nomsCoupes = 0; ///< names longer than a table keeps
};

/// How many of these points bear a name of the table: as the table keeps it, letter case and blanks around it aside.
int nombreNomsExistants(const listePointsDuDessin& table, std::span<const pointXYZ> points);

/// Adds points to the table; what they observe waits in `observations`. One undo group.
VELA_EXPORT bilanAjout ajouterPoints(listePointsDuDessin& table, std::span<const pointXYZ> points, nomsExistants choix,
                                     observationsEnAttente& observations);
