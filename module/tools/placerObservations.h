#pragma once

#include <string>
#include <vector>

#include "dbid.h"

class listePointsDuDessin;

/// The observation that a symbol shows; empty without one.
std::wstring observationDe(const AcDbObjectId& symbole);

/// Writes to the symbol of a point its own observation and those of others, each once. A symbol on a locked layer, or
/// without a place for an observation, stays as it is.
void reunirObservations(const listePointsDuDessin& table, int position, const std::vector<int>& autres);
