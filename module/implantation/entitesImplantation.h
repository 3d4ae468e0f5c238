#pragma once

#include <vector>

#include "implantation/dessinPlan.h"
#include "implantation/identifiants.h"
#include "services/ecrituresDuModule.h"

#include "dbid.h"

/// Drawn values as entities of the working drawing, on the layer "IMPLANTATION", which is made when it is missing. Each
/// bears the mark of what it belongs to.

/// Application name of the extended data of obstacles.
inline constexpr const wchar_t* applicationHauteurs = L"VELA_HAUTEURSOBJETS";

/// Extended data of "VELA_IMPLANTATION": what the entity belongs to, and its identifier.
struct marqueImplantation {
    int genre = 0; ///< 1 a point; a setup's typeCode; 0 results
    identifiantImplantation identifiant = aucunIdentifiant;
};

/// @return the entities: crosses first, in their order
std::vector<AcDbObjectId> dessinerEntites(const dessinPlan& dessin, const marqueImplantation& marque);
/// As one block reference at the origin; its definition is named after `nom`, with a number where that is taken.
AcDbObjectId dessinerGroupe(const dessinPlan& dessin, const std::wstring& nom);
/// Those gone already are passed over; the list is then empty.
void effacerEntites(std::vector<AcDbObjectId>& ids);
/// Makes the application names known to the working drawing.
void declarerApplications();
