#pragma once

#include <vector>

class listePointsDuDessin;

/// Writes to the symbol of a point its own observation and those of others, each once; those on a locked layer keep
/// theirs. @return false when something was to be added and the symbol could not take it: it is on a locked layer, not
/// drawn, or without a place for an observation.
bool reunirObservations(const listePointsDuDessin& table, int position, const std::vector<int>& autres);
