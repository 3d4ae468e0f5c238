#pragma once

#include <string_view>

#include "ed/input/Question.h"

/// ".x", ".yz" and the like, typed where a point is asked for: which coordinates the next point gives. One more point,
/// or a number where only the altitude is missing, gives the others.
struct PointFilter {
    bool x = false, y = false, z = false;
};

/// Nothing for a text that is no filter; ".xyz" is none.
std::optional<PointFilter> pointFilter(std::wstring_view text);

/// Asks for both parts. @return RTNORM or RTCAN.
int askFiltered(const PointFilter& filter, AcGePoint3d& point);
