#pragma once

#include "dbid.h"

/// Replaces a block reference by the entities it shows, in the same space: one level of the block, and each visible
/// attribute that has a text as a text of the same look. Entities on layer "0" take the reference's layer, and those
/// coloured by block its colour, as they had its look.
/// @return false, with nothing changed, when it is no block reference or what it shows cannot be made plain.
bool dissocierBloc(const AcDbObjectId& id);
