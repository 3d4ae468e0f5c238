#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

#include "points/exportation.h"
#include "points/pointDuDessin.h"
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

/// The same texts once the table was sorted, cleared of duplicates or put together anew: each follows the point of the
/// same place, altitude and code. Those of points that went are dropped.
/// @param anciens the points of `observations`, as they stood, in the order of their places
observationsEnAttente observationsSuivies(const listePointsDuDessin& table, const observationsEnAttente& observations,
                                          std::span<const pointDuDessin> anciens);
/// The points that texts wait for, in the order of their places.
std::vector<pointDuDessin> pointsObserves(const listePointsDuDessin& table, const observationsEnAttente& observations);

struct bilanAjout {
    int ajoutes = 0, renumerotes = 0, remplaces = 0, laisses = 0;
    int nomsCoupes = 0;  ///< names longer than a table keeps
    int observes = 0;    ///< points whose observation waits for a symbol
    int verrouilles = 0; ///< that would replace one whose symbol is on a locked layer

    /// That came in, whatever became of them.
    int points() const { return ajoutes + remplaces + laisses + verrouilles; }
};

/// How many of these points bear a name of the table: as the table keeps it, letter case and blanks around it aside.
int nombreNomsExistants(const listePointsDuDessin& table, std::span<const pointXYZ> points);

/// Adds points to the table; what they observe waits in `observations`. One undo group.
/// The points are taken over: a long file's observations would else be held twice.
VELA_EXPORT bilanAjout ajouterPoints(listePointsDuDessin& table, std::vector<pointXYZ> points, nomsExistants choix,
                                     observationsEnAttente& observations);

/// French sentences on names that the table keeps otherwise than they came.
VELA_EXPORT std::vector<std::wstring> phrasesNoms(const bilanAjout& bilan);
