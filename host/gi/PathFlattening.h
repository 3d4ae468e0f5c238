#pragma once

#include "gi/DisplayList.h"
#include "gi/Placement.h"

/// Follows curves by chords.

/// How many chords an arc of radii up to `radius` needs so that none is further than `deviation` from it.
int chordCount(double radius, double turn, double deviation);

/// Appends the points of a segment of a path in the world, its start left out.
void flattenSegment(const Path& path, std::size_t segment, const Placement& place, double deviation,
                    std::vector<AcGePoint3d>& points);
/// The whole path, in place of what `points` held. False when a coordinate is beyond reckoning.
bool flatten(const Path& path, const Placement& place, double deviation, std::vector<AcGePoint3d>& points);
