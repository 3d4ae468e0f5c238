#pragma once

#include "gi/DisplayList.h"
#include "gi/Placement.h"

/// The filled shapes of a path with widths: one ring a segment, in the world; neighbours share a mitred edge unless
/// they turn too sharply.
std::vector<std::vector<AcGePoint3d>> wideOutline(const WidePath& path, const Placement& place, double deviation);
/// The greatest width, in the world.
double widestOf(const WidePath& path, const Placement& place);
