#pragma once

#include <array>
#include <optional>

#include "implantation/donneesStation.h"
#include "implantation/identifiants.h"
#include "implantation/visibilite.h"

/// A point to stake out.
struct pointImplante : lieuNomme {
    identifiantImplantation identifiant = aucunIdentifiant;
    identifiantImplantation station = aucunIdentifiant; ///< of its setup
    bool verifie = false;                               ///< whether its sight was checked
    double hauteurVisible = inconnu; ///< by how much the worst obstruction rises above the sight; 0 when none does
    std::optional<obstruction> pire; ///< that obstruction
    std::wstring cause;              ///< what it is: "le terrain", "un obstacle..."; not checked: why, when known
    double sansSol = 0.0;            ///< length of the sight under which there is no ground
};

enum class etatVisibilite { nonVerifie, visible, nonVisible };

/// @param hauteurMin what may rise above the sight without hiding the point
etatVisibilite etatDe(const pointImplante& point, double hauteurMin);

enum colonneImplantation {
    colNum,
    colX,
    colY,
    colZ,
    colStation,
    colRef,
    colAngle,
    colDistance,
    colVisible,
    nbColonnes
};

/// The row of a point in the list; without setup the cells from "Station" to "Distance" are empty, the angle "-".
using ligneImplantation = std::array<std::wstring, nbColonnes>;
ligneImplantation ligneDe(const pointImplante& point, const donneesStation* station);
