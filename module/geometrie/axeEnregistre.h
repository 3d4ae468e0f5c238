#pragma once

#include <optional>

#include "geometrie/abscisses.h"
#include "geometrie/axe.h"

#include "dbid.h"

/// The true axis of a line of the drawing, kept on it: clothoids are drawn as short chords, and measured as they are.

struct axeEnregistre {
    axe ligne;
    double origine = 0.0; ///< chainage of its start
    std::vector<equationAbscisse> equations;

    abscisses numerotation() const { return abscisses(origine, equations); }
};

/// @return false when the drawing refused it.
bool enregistrerAxe(const AcDbObjectId& entite, const axeEnregistre& lAxe);
/// Nothing when there is none, or one that cannot be read.
std::optional<axeEnregistre> lireAxeEnregistre(const AcDbObjectId& entite);
