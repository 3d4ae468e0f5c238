#include "gi/ClippedSink.h"

#include <algorithm>
#include <cmath>

#include "gi/Box2d.h"
#include "gi/ViewClip.h"

namespace {

using Ring = std::vector<AcGePoint3d>;

constexpr std::size_t mostCorners = 500; // of a ring, whose cube is the time at worst: beyond, areas are shown whole
constexpr double descent = 0.3, ascent = 1.2; // of letters, in heights of a capital

/// Twice the area of a triangle, positive when it turns left.
double turn(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

/// Turns left everywhere, and once in all: a star drawn in one stroke turns twice.
bool isConvex(const Ring& ring)
{
    int turnsBack = 0; // from eastward to westward and back
    double last = 0.0;
    for (std::size_t i = 0; i < 2 * ring.size(); ++i) {
        const AcGePoint3d &a = ring[i % ring.size()], &b = ring[(i + 1) % ring.size()];
        if (turn(a, b, ring[(i + 2) % ring.size()]) < 0.0)
            return false;
        const double east = b.x - a.x;
        turnsBack += i >= ring.size() && east * last < 0.0; // the first round finds where it comes from
        last = east != 0.0 ? east : last;
    }
    return turnsBack <= 2;
}

bool isEar(const Ring& ring, std::size_t tip)
{
    const AcGePoint3d& a = ring[(tip + ring.size() - 1) % ring.size()];
    const AcGePoint3d &b = ring[tip], &c = ring[(tip + 1) % ring.size()];
    if (turn(a, b, c) <= 0.0)
        return false;
    return std::ranges::none_of(
        ring, [&](const AcGePoint3d& p) { return turn(a, b, p) > 0.0 && turn(b, c, p) > 0.0 && turn(c, a, p) > 0.0; });
}

/// A ring in convex parts: itself, or triangles, each cut from a corner that holds no other.
std::vector<Ring> convexParts(Ring ring)
{
    double area = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i)
        area += turn(AcGePoint3d(), ring[i], ring[(i + 1) % ring.size()]);
    if (area < 0.0)
        std::ranges::reverse(ring);
    if (isConvex(ring))
        return {std::move(ring)};
    std::vector<Ring> parts;
    while (ring.size() > 3) {
        std::size_t tip = 0;
        while (tip < ring.size() && !isEar(ring, tip))
            ++tip;
        if (tip == ring.size()) // it crosses itself: any corner goes
            tip = 0;
        const std::size_t before = (tip + ring.size() - 1) % ring.size(), after = (tip + 1) % ring.size();
        if (turn(ring[before], ring[tip], ring[after]) > 0.0)
            parts.push_back({ring[before], ring[tip], ring[after]});
        ring.erase(ring.begin() + static_cast<std::ptrdiff_t>(tip));
    }
    parts.push_back(std::move(ring));
    return parts;
}

/// What of a ring lies to the left of a line.
Ring leftOf(const Ring& ring, const AcGePoint3d& a, const AcGePoint3d& b)
{
    Ring kept;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const AcGePoint3d &from = ring[i], &to = ring[(i + 1) % ring.size()];
        const double before = turn(a, b, from), after = turn(a, b, to);
        if (before >= 0.0)
            kept.push_back(from);
        if ((before >= 0.0) != (after >= 0.0))
            kept.push_back(between(from, to, before / (before - after)));
    }
    return kept;
}

/// Whether a ring is no more than a line, as one is that only touches what it was cut at: within clips in each other,
/// each such sliver would be cut into more of them.
bool isSliver(const Ring& ring)
{
    constexpr double rounding = 1e-12; // of the square that the ring fills
    double area = 0.0, reach = 0.0;
    for (std::size_t i = 1; i + 1 < ring.size(); ++i)
        area += turn(ring[0], ring[i], ring[i + 1]);
    for (const AcGePoint3d& point : ring)
        reach = std::max({reach, std::abs(point.x - ring[0].x), std::abs(point.y - ring[0].y)});
    return !(std::abs(area) > rounding * reach * reach);
}

Box2d boxAround(const Ring& ring)
{
    Box2d box;
    for (const AcGePoint3d& point : ring)
        box.add(point);
    return box;
}

/// What of a ring lies in a convex part.
Ring cutTo(const Ring& part, Ring ring)
{
    for (std::size_t i = 0; i < part.size() && !ring.empty(); ++i)
        ring = leftOf(ring, part[i], part[(i + 1) % part.size()]);
    return ring;
}

} // namespace

bool isWithin(std::span<const AcGePoint3d> ring, const AcGePoint3d& point)
{
    bool inside = false;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const AcGePoint3d &a = ring[i], &b = ring[(i + 1) % ring.size()];
        if ((a.y > point.y) != (b.y > point.y) && point.x < a.x + (b.x - a.x) * (point.y - a.y) / (b.y - a.y))
            inside = !inside;
    }
    return inside;
}

ClippedSink::ClippedSink(GraphicsSink& sink, Ring ring) : m_sink(sink), m_ring(std::move(ring)) {}

std::vector<double> ClippedSink::crossings(const AcGePoint3d& from, const AcGePoint3d& to) const
{
    std::vector<double> shares{0.0, 1.0};
    for (std::size_t i = 0; i < m_ring.size(); ++i) {
        const AcGePoint3d &a = m_ring[i], &b = m_ring[(i + 1) % m_ring.size()];
        const double before = turn(a, b, from), after = turn(a, b, to);
        if ((before < 0.0) == (after < 0.0))
            continue;
        const double share = before / (before - after);
        const AcGePoint3d at = between(from, to, share);
        const double along = (at.x - a.x) * (b.x - a.x) + (at.y - a.y) * (b.y - a.y);
        const double length = (b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y);
        if (along >= 0.0 && along <= length)
            shares.push_back(share);
    }
    std::ranges::sort(shares);
    return shares;
}

void ClippedSink::polyline(Points points, const Appearance& look)
{
    Ring run;
    const auto flush = [&] {
        if (run.size() >= 2)
            m_sink.polyline(run, look);
        run.clear();
    };
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        const std::vector<double> shares = crossings(points[i], points[i + 1]);
        for (std::size_t k = 0; k + 1 < shares.size(); ++k) {
            const auto at = [&](double share) { return between(points[i], points[i + 1], share); };
            const bool isPoint = shares[k] == shares[k + 1];
            if (isPoint)
                continue;
            if (!holds(at((shares[k] + shares[k + 1]) / 2.0))) {
                flush();
                continue;
            }
            if (run.empty())
                run.push_back(at(shares[k]));
            run.push_back(at(shares[k + 1]));
        }
    }
    flush();
}

void ClippedSink::polygon(std::span<const Ring> rings, const Appearance& look)
{
    if (m_ring.size() > mostCorners)
        return m_sink.polygon(rings, look);
    if (m_convex.empty())
        m_convex = convexParts(m_ring);
    for (const Ring& part : m_convex) {
        const Box2d box = boxAround(part);
        std::vector<Ring> cut;
        for (const Ring& ring : rings)
            if (boxAround(ring).touches(box))
                cut.push_back(cutTo(part, ring));
        std::erase_if(cut, isSliver);
        if (!cut.empty())
            m_sink.polygon(cut, look);
    }
}

void ClippedSink::dot(const AcGePoint3d& point, const Appearance& look)
{
    if (holds(point))
        m_sink.dot(point, look);
}

void ClippedSink::text(const TextItem& item, const Appearance& look)
{
    const AcGeVector3d along = item.along * item.width;
    const AcGePoint3d low = item.origin - item.up * descent, high = item.origin + item.up * ascent;
    const Ring box{low, low + along, high + along, high};
    bool crossed = isWithin(box, m_ring.front()); // a ring within one letter
    for (std::size_t i = 0; i < box.size() && !crossed; ++i)
        crossed = isCrossedBy(box[i], box[(i + 1) % box.size()]);
    if (!crossed)
        return holds(low) ? m_sink.text(item, look) : void();
    TextItem cut = item;
    cut.clips.push_back(m_ring);
    m_sink.text(cut, look);
}
