#pragma once

#include <vector>

/// Horizontal place and code of a point, and its position in its table: what tells duplicates apart.
struct lieuPoint {
    double x;
    double y;
    int code;
    int position;
};

/// Two points stand on one place when their horizontal distance is below this (drawing units).
constexpr double toleranceDoublons = 1e-8;

/// Sorts by x, then y, then code, then position, and keeps one point of each place: the first met, so the one of lowest
/// code.
/// In the sort, x values (then y values) that follow each other by less than the tolerance count as equal. Such an
/// equality is not transitive, so it never enters a comparison: values are sorted exactly and then grouped by the gaps
/// between them. Values that are not numbers come last.
/// Cost: the sort, then linear.
std::vector<lieuPoint> pointsDistincts(std::vector<lieuPoint> lieux);
