#include "gi/PickArea.h"

#include "gi/ViewClip.h"

namespace {

/// Whether a ray to the right of a point crosses an edge; of two edges that share a corner, one counts.
bool crossesRay(double x, double y, double ax, double ay, double bx, double by)
{
    return (ay > y) != (by > y) && x < ax + (bx - ax) * (y - ay) / (by - ay);
}

/// Twice the area that three points span, positive counter-clockwise.
double turn(double ax, double ay, double bx, double by, double cx, double cy)
{
    return (bx - ax) * (cy - ay) - (by - ay) * (cx - ax);
}

bool spans(double a, double b, double c, double d)
{
    return std::max(a, b) >= std::min(c, d) && std::max(c, d) >= std::min(a, b);
}

bool segmentsMeet(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint2d& c, const AcGePoint2d& d)
{
    if (!spans(a.x, b.x, c.x, d.x) || !spans(a.y, b.y, c.y, d.y))
        return false;
    const double ofC = turn(a.x, a.y, b.x, b.y, c.x, c.y), ofD = turn(a.x, a.y, b.x, b.y, d.x, d.y);
    const double ofA = turn(c.x, c.y, d.x, d.y, a.x, a.y), ofB = turn(c.x, c.y, d.x, d.y, b.x, b.y);
    return !(ofC > 0.0 && ofD > 0.0) && !(ofC < 0.0 && ofD < 0.0) && !(ofA > 0.0 && ofB > 0.0) &&
           !(ofA < 0.0 && ofB < 0.0);
}

} // namespace

bool isWithin(std::span<const std::vector<AcGePoint3d>> rings, double x, double y)
{
    bool within = false;
    for (const std::vector<AcGePoint3d>& ring : rings)
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const AcGePoint3d &a = ring[i], &b = ring[i + 1 < ring.size() ? i + 1 : 0];
            within ^= crossesRay(x, y, a.x, a.y, b.x, b.y);
        }
    return within;
}

PickArea::PickArea(std::span<const AcGePoint2d> points, bool closed) :
    m_points(points.begin(), points.end()),
    m_closed(closed)
{
    if (closed && !m_points.empty())
        m_points.push_back(m_points.front());
    for (const AcGePoint2d& point : m_points)
        m_box.add(point.x, point.y);
}

PickArea PickArea::ofBox(const Box2d& box)
{
    const AcGePoint2d corners[] = {
        {box.minX, box.minY}, {box.maxX, box.minY}, {box.maxX, box.maxY}, {box.minX, box.maxY}};
    PickArea area(corners, true);
    area.m_isBox = true;
    return area;
}

bool PickArea::holds(double x, double y) const
{
    if (!m_closed || !m_box.holds(x, y))
        return false;
    if (m_isBox)
        return true;
    bool within = false;
    for (std::size_t i = 0; i + 1 < m_points.size(); ++i)
        within ^= crossesRay(x, y, m_points[i].x, m_points[i].y, m_points[i + 1].x, m_points[i + 1].y);
    return within;
}

bool PickArea::meetsBorder(const AcGePoint3d& from, const AcGePoint3d& to) const
{
    double start = 0.0, end = 1.0;
    if (!clipSegment(from, to, m_box, start, end))
        return false;
    for (std::size_t i = 0; i + 1 < m_points.size(); ++i)
        if (segmentsMeet(from, to, m_points[i], m_points[i + 1]))
            return true;
    return false;
}

bool PickArea::touches(Points line) const
{
    if (m_isBox) {
        double start = 0.0, end = 1.0;
        for (std::size_t i = 0; i + 1 < line.size(); ++i)
            if (clipSegment(line[i], line[i + 1], m_box, start, end))
                return true;
        return false;
    }
    for (std::size_t i = 0; i + 1 < line.size(); ++i)
        if (holds(line[i].x, line[i].y) || meetsBorder(line[i], line[i + 1]))
            return true;
    return !line.empty() && holds(line.back().x, line.back().y);
}

bool PickArea::encloses(Points line) const
{
    for (const AcGePoint3d& point : line)
        if (!holds(point.x, point.y))
            return false;
    for (std::size_t i = 0; !m_isBox && i + 1 < line.size(); ++i)
        if (meetsBorder(line[i], line[i + 1]))
            return false;
    return true;
}

bool PickArea::touchesFilled(std::span<const std::vector<AcGePoint3d>> rings) const
{
    for (const std::vector<AcGePoint3d>& ring : rings) {
        if (ring.empty())
            continue;
        const AcGePoint3d closing[] = {ring.back(), ring.front()};
        if (touches(ring) || touches(closing))
            return true;
    }
    return !m_points.empty() && isWithin(rings, m_points.front().x, m_points.front().y);
}

bool PickArea::encloses(std::span<const std::vector<AcGePoint3d>> rings) const
{
    for (const std::vector<AcGePoint3d>& ring : rings) {
        if (ring.empty())
            continue;
        const AcGePoint3d closing[] = {ring.back(), ring.front()};
        if (!encloses(ring) || !encloses(closing))
            return false;
    }
    return true;
}
