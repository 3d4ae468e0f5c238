#include "gi/WideOutline.h"

#include <algorithm>

#include "gi/PathFlattening.h"

namespace {

constexpr double sharpest = 0.25; // cosine of half the turn at which a mitre would reach too far

/// The middle of a segment: points with the direction across and half the width at each.
struct Rib {
    AcGePoint3d at;
    AcGeVector3d across;
    double half;
};

std::vector<Rib> ribsOf(const WidePath& wide, std::size_t segment, const Placement& place, double deviation)
{
    const Path& path = wide.path;
    const auto [startWidth, endWidth] = wide.widths[segment];
    std::vector<Rib> ribs;
    const AcGeVector3d normal = wide.normal.isZeroLength() ? AcGeVector3d::kZAxis : wide.normal.normal();
    if (const PathArc* arc = path.arcOf(segment)) {
        const double widest = 1.0 + std::max(startWidth, endWidth) / 2.0 / arc->toStart.length();
        const double radius = widest * std::max(place(arc->toStart).length(), place(arc->across).length());
        const int chords = std::max(chordCount(radius, arc->turn, deviation), 2);
        // Outwards lies to the right of an arc that turns counter-clockwise, seen along the normal.
        const double sense = arc->toStart.crossProduct(arc->across).dotProduct(normal) < 0.0 ? 1.0 : -1.0;
        for (int i = 0; i <= chords; ++i) {
            const double share = static_cast<double>(i) / chords;
            const AcGePoint3d at = arc->at(arc->turn * share);
            ribs.push_back(
                {at, (at - arc->center).normal() * sense, (startWidth + (endWidth - startWidth) * share) / 2.0});
        }
        return ribs;
    }
    const AcGePoint3d &from = path.points[segment], &to = path.points[segment + 1];
    const AcGeVector3d across = normal.crossProduct((to - from).normal());
    return {{from, across, startWidth / 2.0}, {to, across, endWidth / 2.0}};
}

/// Lets the last rib of a segment and the first of the next one meet on the line that halves their angle.
void mitre(Rib& end, Rib& start)
{
    if (end.half != start.half)
        return;
    const AcGeVector3d sum = end.across + start.across;
    const double cosine = sum.length() / 2.0;
    if (!(cosine > sharpest))
        return;
    const AcGeVector3d across = sum / (sum.length() * cosine);
    end.across = start.across = across;
}

} // namespace

double widestOf(const WidePath& path, const Placement& place)
{
    double widest = 0.0;
    for (const auto& [start, end] : path.widths)
        widest = std::max({widest, start, end});
    return widest * std::max(place(AcGeVector3d::kXAxis).length(), place(AcGeVector3d::kYAxis).length());
}

std::vector<std::vector<AcGePoint3d>> wideOutline(const WidePath& path, const Placement& place, double deviation)
{
    std::vector<std::vector<Rib>> segments;
    for (std::size_t i = 0; i + 1 < path.path.points.size(); ++i)
        if (path.path.arcOf(i) || path.path.points[i].distanceTo(path.path.points[i + 1]) > 0.0)
            segments.push_back(ribsOf(path, i, place, deviation));
    for (std::size_t i = 0; i + 1 < segments.size(); ++i)
        mitre(segments[i].back(), segments[i + 1].front());
    if (segments.size() > 1 && path.path.isClosed())
        mitre(segments.back().back(), segments.front().front());

    std::vector<std::vector<AcGePoint3d>> rings;
    for (const std::vector<Rib>& ribs : segments) {
        std::vector<AcGePoint3d>& ring = rings.emplace_back();
        for (const Rib& rib : ribs)
            ring.push_back(place(rib.at + rib.across * rib.half));
        for (auto rib = ribs.rbegin(); rib != ribs.rend(); ++rib)
            ring.push_back(place(rib->at - rib->across * rib->half));
        if (!std::ranges::all_of(ring, [](const AcGePoint3d& p) { return std::isfinite(p.x + p.y + p.z); }))
            rings.pop_back();
    }
    return rings;
}
