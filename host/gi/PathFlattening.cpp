#include "gi/PathFlattening.h"

#include <algorithm>

#include "ge/Angles.h"

namespace {

constexpr int leastOfTurn = 8, mostOfTurn = 20000; // chords of a whole turn

bool allFinite(const std::vector<AcGePoint3d>& points)
{
    return std::ranges::all_of(points, [](const AcGePoint3d& p) { return std::isfinite(p.x + p.y + p.z); });
}

} // namespace

int chordCount(double radius, double turn, double deviation)
{
    const double share = std::min(std::fabs(turn) / wholeTurn, 1.0);
    const double least = std::max(1.0, std::ceil(leastOfTurn * share)), most = std::max(least, mostOfTurn * share);
    if (!(radius > deviation) || !(deviation > 0.0))
        return static_cast<int>(radius > 0.0 && !(deviation > 0.0) ? most : least);
    // A chord that turns by a deviates by radius · (1 − cos(a/2)).
    const double step = 2.0 * std::acos(1.0 - deviation / radius);
    return static_cast<int>(step > 0.0 ? std::clamp(std::ceil(std::fabs(turn) / step), least, most) : most);
}

void flattenSegment(const Path& path, std::size_t segment, const Placement& place, double deviation,
                    std::vector<AcGePoint3d>& points)
{
    if (const PathArc* arc = path.arcOf(segment)) {
        const PathArc placed{arc->segment, place(arc->center), place(arc->toStart), place(arc->across), arc->turn};
        const double radius = std::max(placed.toStart.length(), placed.across.length());
        const int chords = chordCount(radius, arc->turn, deviation);
        for (int i = 1; i < chords; ++i)
            points.push_back(placed.at(arc->turn * i / chords));
    }
    points.push_back(place(path.points[segment + 1]));
}

bool flatten(const Path& path, const Placement& place, double deviation, std::vector<AcGePoint3d>& points)
{
    points.clear();
    points.push_back(place(path.points.front()));
    for (std::size_t i = 0; i + 1 < path.points.size(); ++i)
        flattenSegment(path, i, place, deviation, points);
    return allFinite(points);
}
