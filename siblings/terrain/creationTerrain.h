#pragma once

#include <string>

#include "dbid.h"
#include "sourcesTerrain.h"

/// Makes a model of what the sources give now, keeps it in the current drawing under a name (in place of the one that
/// has it), makes it the current one, and says on the command line what went in, what was left out, what disagrees.
/// @return its id, null when there is nothing to triangulate or the drawing refused it: said as well.
AcDbObjectId creerModele(const std::wstring& nom, const sourcesTerrain& sources);

/// "MNT1" or the first such name that no model of the drawing has.
std::wstring nomLibre();

/// The scripted command: a name, then what to select, then Enter. Enter without a selection takes the points of the
/// current table.
void commandeMntScript();
