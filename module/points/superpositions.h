#pragma once

#include <vector>

class listePointsDuDessin;

/// Points of a table that stand nearer than `distance` to one another in the horizontal plane, gathered in groups: a
/// point belongs to a group when it is near one of its points. Positions in the table, ascending; groups by their first
/// point. Points at an unknown place belong to none. Cost: a sort of the points, then the pairs of near ones.
std::vector<std::vector<int>> superpositions(const listePointsDuDessin& table, double distance);
