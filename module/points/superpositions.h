#pragma once

#include <vector>

class listePointsDuDessin;

/// Points of a table that stand nearer than `distance` to one another in the horizontal plane, gathered in groups: a
/// point belongs to a group when it is near one of its points. Positions in the table, ascending; groups by their first
/// point. Points at an unknown place belong to none. Linear in the points, near ones apart.
std::vector<std::vector<int>> superpositions(const listePointsDuDessin& table, double distance);
