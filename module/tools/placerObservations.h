#pragma once

#include <vector>

class listePointsDuDessin;

/// Writes to the symbol of a point its own observation and those of others, each once. A symbol on a locked layer, or
/// without a place for an observation, stays as it is.
void reunirObservations(const listePointsDuDessin& table, int position, const std::vector<int>& autres);
