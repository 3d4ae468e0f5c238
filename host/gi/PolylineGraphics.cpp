#include <algorithm>

#include "db/entities/PathSegment.h"
#include "gi/EntityGraphics.h"

namespace {

/// An arc that turns less is a straight line in any picture, and its centre is out of all precision.
constexpr double leastBulge = 1e-8;

/// Calls `take` for each vertex of class `Vertex` that an entity owns.
template <class Vertex, class Owner, class Take>
void forVertices(const Owner& owner, const Take& take)
{
    const std::unique_ptr<AcDbObjectIterator> vertices(owner.vertexIterator());
    for (vertices->start(); !vertices->done(); vertices->step()) {
        AcDbObjectPointer<Vertex> opened(vertices->objectId());
        const Vertex* vertex = vertices->entity() ? Vertex::cast(vertices->entity()) : opened.object();
        if (vertex)
            take(*vertex);
    }
}

} // namespace

Path bulgedPath(const std::vector<BulgedVertex>& vertices, bool closed, const AcGeMatrix3d& toOwner)
{
    Path path;
    const std::size_t count = vertices.size(), segments = closed ? count : count - 1;
    path.points.reserve(segments + 1);
    for (std::size_t i = 0; i < count; ++i)
        path.points.push_back(toOwner * vertices[i].point);
    if (closed)
        path.points.push_back(path.points.front());
    for (std::size_t i = 0; i < segments; ++i) {
        const PathSegment segment{vertices[i].point, vertices[(i + 1) % count].point, vertices[i].bulge};
        if (!segment.isArc() || !(std::fabs(segment.bulge) > leastBulge))
            continue;
        const AcGePoint3d center = segment.center();
        const AcGeVector3d out = segment.start - center;
        const double sense = segment.bulge > 0.0 ? 1.0 : -1.0;
        path.arcs.push_back({static_cast<std::uint32_t>(i), toOwner * center, toOwner * out,
                             toOwner * AcGeVector3d(-out.y * sense, out.x * sense, 0.0), std::fabs(segment.turn())});
    }
    return path;
}

void addPlanePolyline(PlanePolyline plane, DisplayList& list, const AcGeMatrix3d& place)
{
    if (plane.vertices.size() < 2)
        return;
    const AcGeMatrix3d toList = place * planeOf(plane.normal);
    Path path = bulgedPath(plane.vertices, plane.closed, toList);
    path.unbroken = plane.unbroken;
    path.smooth = plane.smooth;
    const bool wide =
        std::ranges::any_of(plane.widths, [](const auto& width) { return width.first != 0.0 || width.second != 0.0; });
    if (!wide)
        return list.add(std::move(path));
    plane.widths.resize(path.points.size() - 1);
    const AcGeVector3d along = toList * AcGeVector3d::kXAxis, up = toList * AcGeVector3d::kYAxis;
    const double scale = std::max(along.length(), up.length()); // one for all directions, as in widestOf
    for (auto& [start, end] : plane.widths) {
        start *= scale;
        end *= scale;
    }
    list.add(WidePath{std::move(path), std::move(plane.widths), along.crossProduct(up)});
}

void addPolyline(const AcDbPolyline& polyline, DisplayList& list)
{
    PlanePolyline plane;
    plane.closed = polyline.isClosed() != Adesk::kFalse;
    plane.unbroken = polyline.hasPlinegen();
    plane.normal = polyline.normal();
    const bool wide = polyline.hasWidth();
    for (unsigned int i = 0; i < polyline.numVerts(); ++i) {
        AcGePoint2d point;
        double bulge = 0.0, start = 0.0, end = 0.0;
        polyline.getPointAt(i, point);
        polyline.getBulgeAt(i, bulge);
        plane.vertices.push_back({AcGePoint3d(point.x, point.y, polyline.elevation()), bulge});
        if (wide && polyline.getWidthsAt(i, start, end) == Acad::eOk)
            plane.widths.emplace_back(start, end);
    }
    addPlanePolyline(std::move(plane), list);
}

void add2dPolyline(const AcDb2dPolyline& polyline, DisplayList& list)
{
    PlanePolyline plane;
    plane.closed = polyline.isClosed() != Adesk::kFalse;
    plane.normal = polyline.normal();
    plane.smooth = polyline.polyType() == AcDb::k2dQuadSplinePoly || polyline.polyType() == AcDb::k2dCubicSplinePoly;
    plane.unbroken = plane.smooth;
    forVertices<AcDb2dVertex>(polyline, [&](const AcDb2dVertex& vertex) {
        if (vertex.vertexType() == AcDb::k2dSplineCtlVertex)
            return;
        const AcGePoint3d held = vertex.position();
        plane.vertices.push_back({AcGePoint3d(held.x, held.y, polyline.elevation()), vertex.bulge()});
        // A vertex that says nothing has the widths of the polyline.
        const bool own = vertex.startWidth() != 0.0 || vertex.endWidth() != 0.0;
        plane.widths.emplace_back(own ? vertex.startWidth() : polyline.defaultStartWidth(),
                                  own ? vertex.endWidth() : polyline.defaultEndWidth());
    });
    addPlanePolyline(std::move(plane), list);
}

void add3dPolyline(const AcDb3dPolyline& polyline, DisplayList& list)
{
    Path path;
    path.smooth = path.unbroken = polyline.polyType() != AcDb::k3dSimplePoly;
    forVertices<AcDb3dPolylineVertex>(polyline, [&](const AcDb3dPolylineVertex& vertex) {
        if (vertex.vertexType() != AcDb::k3dControlVertex)
            path.points.push_back(vertex.position());
    });
    if (polyline.isClosed() && !path.points.empty())
        path.points.push_back(path.points.front());
    list.add(std::move(path));
}
