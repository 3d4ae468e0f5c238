#pragma once

#include "codification/symbolePoint.h"

/// A symbol and its point, once drawn: from the point to the symbol, and back.

/// Brings name, altitude text and place of a symbol in line with its point; the reference keeps its elevation, and its
/// attributes go along. Its code text, observation, layers and block stay as they are. A point at an unknown place
/// leaves its symbol where it is, and an entity of another kind stays as it is.
/// @return false when the working drawing has no such entity: erased, or of another drawing.
bool actualiserSymbole(const AcDbObjectId& id, const donneesSymbole& point, const codifPoint& codif);

enum class lectureSymbole { autreEntite, sansNom, lu };

/// Reads a symbol into `point`: X and Y of any block reference, and the rest when it has a name attribute.
/// The code is 1 when its attribute is missing or tells a number outside 0 to 9999. An altitude that is not wholly a
/// number is unknown; the elevation of the reference does not count. The observation is not read.
lectureSymbole lireSymbole(const AcDbObjectId& id, donneesSymbole& point);
