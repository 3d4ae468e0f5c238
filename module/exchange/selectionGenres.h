#pragma once

#include <string>
#include <vector>

#include "dbid.h"

/// Asks the user to select entities of these kinds (importDessin.h), or takes what was selected before the command.
/// Nothing for no kind, a cancel, an empty selection.
std::vector<AcDbObjectId> selectionnerGenres(int genres);

/// The tags of the attributes that block references of the drawing have, each once, in alphabetical order.
std::vector<std::wstring> etiquettesDuDessin();
