#pragma once

#include <optional>
#include <vector>

/// A known point and what the circle of the instrument reads towards it, clockwise, in radians.
struct repereVise {
    double x, y, lecture;
};

struct placeRelevee {
    double x, y;
};

/// Resection: where the instrument stands that reads so. Nothing with fewer than three points, when all lie in one
/// line of sight, or when the readings agree with no place.
std::optional<placeRelevee> relever(const std::vector<repereVise>& reperes);
