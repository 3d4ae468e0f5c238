#include "db/entities/VertexPath.h"

#include "db/entities/ArcExtents.h"
#include "db/entities/OcsTransform.h"

#include "dbents.h"

namespace {
constexpr double paramTolerance = 1e-9;
constexpr double lengthTolerance = 1e-9; // relative
} // namespace

VertexPath::Vertex VertexPath::vertex(std::size_t i) const
{
    if (!m_borrowed)
        return m_own[i];
    const AcDbPolylineVertex& v = (*m_borrowed)[i];
    return {AcGePoint3d(v.point.x, v.point.y, m_elevation), v.bulge};
}

std::size_t VertexPath::segmentCount() const
{
    const std::size_t count = vertexCount();
    return count < 2 ? 0 : m_closed ? count : count - 1;
}

PathSegment VertexPath::segment(std::size_t i) const
{
    const Vertex from = vertex(i);
    return {from.point, vertex(i + 1 < vertexCount() ? i + 1 : 0).point, from.bulge};
}

bool VertexPath::locate(double param, std::size_t& segment, double& t) const
{
    const double last = endParam();
    if (!(param >= -paramTolerance && param <= last + paramTolerance))
        return false;
    param = std::clamp(param, 0.0, last);
    segment = std::min(static_cast<std::size_t>(param), segmentCount() - 1);
    t = param - static_cast<double>(segment);
    return true;
}

bool VertexPath::pointAt(double param, AcGePoint3d& point) const
{
    if (vertexCount() == 1 && param == 0.0) {
        point = ocsToWorld(vertex(0).point, m_normal);
        return true;
    }
    std::size_t i = 0;
    double t = 0.0;
    if (segmentCount() == 0 || !locate(param, i, t))
        return false;
    point = ocsToWorld(segment(i).at(t), m_normal);
    return true;
}

bool VertexPath::derivativeAt(double param, AcGeVector3d& derivative) const
{
    std::size_t i = 0;
    double t = 0.0;
    if (segmentCount() == 0 || !locate(param, i, t))
        return false;
    derivative = ocsToWorld(AcGePoint3d() + segment(i).derivative(t), m_normal).asVector();
    return true;
}

bool VertexPath::lengthTo(double param, double& length) const
{
    if (segmentCount() == 0) {
        length = 0.0;
        return vertexCount() == 1 && param == 0.0;
    }
    std::size_t last = 0;
    double t = 0.0;
    if (!locate(param, last, t))
        return false;
    length = 0.0;
    for (std::size_t i = 0; i < last; ++i)
        length += segment(i).length();
    length += segment(last).length() * t;
    return true;
}

bool VertexPath::paramAtLength(double length, double& param) const
{
    if (!(length >= 0.0))
        return false;
    double passed = 0.0;
    for (std::size_t i = 0; i < segmentCount(); ++i) {
        const double own = segment(i).length();
        if (length < passed + own) {
            param = static_cast<double>(i) + (length - passed) / own;
            return true;
        }
        passed += own;
    }
    param = endParam();
    return vertexCount() > 0 && length - passed <= lengthTolerance * std::max(1.0, passed);
}

bool VertexPath::nearest(const AcGePoint3d& point, double& param, AcGePoint3d& onPath) const
{
    if (vertexCount() == 0)
        return false;
    const AcGePoint3d p = worldToOcs(point, m_normal);
    AcGePoint3d best = vertex(0).point;
    double bestDistance = (p - best).lengthSqrd();
    param = 0.0;
    for (std::size_t i = 0; i < segmentCount(); ++i) {
        const PathSegment piece = segment(i);
        const double t = piece.nearest(p);
        const AcGePoint3d candidate = piece.at(t);
        const double distance = (p - candidate).lengthSqrd();
        if (distance < bestDistance) {
            bestDistance = distance;
            best = candidate;
            param = static_cast<double>(i) + t;
        }
    }
    onPath = ocsToWorld(best, m_normal);
    return true;
}

double VertexPath::area() const
{
    if (vertexCount() < 2)
        return 0.0;
    const AcGePoint3d origin = vertex(0).point; // near coordinates keep the digits of far ones
    double twice = 0.0;
    for (std::size_t i = 0; i < segmentCount(); ++i) {
        const PathSegment piece = segment(i);
        const AcGeVector3d a = piece.start - origin, b = piece.end - origin;
        twice += a.x * b.y - a.y * b.x + piece.twiceSegmentArea();
    }
    return std::fabs(twice) / 2.0;
}

void VertexPath::addExtents(AcDbExtents& extents) const
{
    for (std::size_t i = 0; i < vertexCount(); ++i)
        extents.addPoint(ocsToWorld(vertex(i).point, m_normal));
    for (std::size_t i = 0; i < segmentCount(); ++i) {
        const PathSegment piece = segment(i);
        if (!piece.isArc())
            continue;
        if (isWorldNormal(m_normal)) {
            piece.forExtremes([&](double t) { extents.addPoint(piece.at(t)); });
            continue;
        }
        addArcExtents(extents, {piece.center(), piece.radius(), piece.startAngle(), piece.turn()}, m_normal);
    }
}

bool VertexPath::liesInOnePlane() const
{
    if (vertexCount() < 4)
        return true;
    const AcGePoint3d origin = vertex(0).point;
    AcGeVector3d first, across;
    for (std::size_t i = 1; i < vertexCount(); ++i) {
        const AcGeVector3d v = vertex(i).point - origin;
        if (first.isZeroLength())
            first = v.normal();
        else if (across.isZeroLength())
            across = first.crossProduct(v.normal());
        else if (std::fabs(across.normal().dotProduct(v)) > paramTolerance * std::max(1.0, v.length()))
            return false;
    }
    return true;
}

void VertexPath::explode(const AcDbEntity& origin, AcDbVoidPtrArray& entities) const
{
    const auto add = [&](auto* entity) {
        entity->setPropertiesFrom(&origin);
        entity->setThickness(m_thickness);
        entities.append(static_cast<AcDbEntity*>(entity));
    };
    const AcGeVector3d up = isWorldNormal(m_normal) ? AcGeVector3d::kZAxis : m_normal;
    for (std::size_t i = 0; i < segmentCount(); ++i) {
        const PathSegment piece = segment(i);
        if (!piece.isArc()) {
            auto* line = new AcDbLine(ocsToWorld(piece.start, m_normal), ocsToWorld(piece.end, m_normal));
            line->setNormal(up);
            add(line);
            continue;
        }
        const double from = piece.startAngle(), to = from + piece.turn(); // arcs run counter-clockwise
        add(new AcDbArc(ocsToWorld(piece.center(), m_normal), up, piece.radius(), inOneTurn(std::min(from, to)),
                        inOneTurn(std::max(from, to))));
    }
}
