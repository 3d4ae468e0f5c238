#include "gi/ViewClip.h"

namespace {

/// Narrows [start, end] to where from + share · way stays on the side value <= limit, for the way's component.
bool narrow(double from, double way, double limit, double& start, double& end)
{
    if (way == 0.0)
        return from <= limit;
    const double share = (limit - from) / way;
    (way > 0.0 ? end : start) = way > 0.0 ? std::min(end, share) : std::max(start, share);
    return start <= end;
}

/// Keeps of a ring what `inside` (the distance from a side of the box, not negative within) allows.
template <class Inside>
std::vector<AcGePoint3d> keep(const std::vector<AcGePoint3d>& ring, const Inside& inside)
{
    std::vector<AcGePoint3d> kept;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const AcGePoint3d &from = ring[i], &to = ring[i + 1 < ring.size() ? i + 1 : 0];
        const double a = inside(from), b = inside(to);
        if (a >= 0.0)
            kept.push_back(from);
        if ((a >= 0.0) != (b >= 0.0))
            kept.push_back(between(from, to, a / (a - b)));
    }
    return kept;
}

} // namespace

bool clipSegment(const AcGePoint3d& from, const AcGePoint3d& to, const Box2d& box, double& start, double& end)
{
    start = 0.0;
    end = 1.0;
    const double wayX = to.x - from.x, wayY = to.y - from.y;
    return narrow(from.x, wayX, box.maxX, start, end) && narrow(-from.x, -wayX, -box.minX, start, end) &&
           narrow(from.y, wayY, box.maxY, start, end) && narrow(-from.y, -wayY, -box.minY, start, end);
}

AcGePoint3d between(const AcGePoint3d& from, const AcGePoint3d& to, double share)
{
    return share <= 0.0 ? from : share >= 1.0 ? to : from + (to - from) * share;
}

Box2d boxOf(std::span<const AcGePoint3d> points)
{
    Box2d box;
    for (const AcGePoint3d& point : points)
        box.add(point);
    return box;
}

std::vector<AcGePoint3d> clipRing(std::vector<AcGePoint3d> ring, const Box2d& box)
{
    ring = keep(ring, [&](const AcGePoint3d& p) { return p.x - box.minX; });
    ring = keep(ring, [&](const AcGePoint3d& p) { return box.maxX - p.x; });
    ring = keep(ring, [&](const AcGePoint3d& p) { return p.y - box.minY; });
    return keep(ring, [&](const AcGePoint3d& p) { return box.maxY - p.y; });
}
