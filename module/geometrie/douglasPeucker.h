#pragma once

#include <span>
#include <vector>

#include "geometrie/plan.h"

/// The vertices that a line needs to stay within `tolerance` of all of its vertices (Douglas and Peucker, "Algorithms
/// for the reduction of the number of points required to represent a digitized line or its caricature"): positions,
/// ascending, the first and the last always among them. Distances are those of space, from the segments that replace
/// the vertices.
std::vector<std::size_t> sommetsUtiles(std::span<const point3> ligne, double tolerance);
