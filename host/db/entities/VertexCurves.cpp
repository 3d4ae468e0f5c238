#include "db/entities/OcsTransform.h"
#include "db/entities/OwnedVertices.h"
#include "db/entities/VertexPath.h"

#include "dbents.h"

ACRX_DXF_DEFINE_MEMBERS(AcDb2dPolyline, AcDbCurve, POLYLINE)
ACRX_DXF_DEFINE_MEMBERS(AcDb3dPolyline, AcDbCurve, POLYLINE)

namespace {

/// What a polyline's group 75 says of its smoothing.
constexpr Adesk::Int16 quadraticSpline = 5, cubicSpline = 6;
constexpr Adesk::Int16 curveFitFlag = 2, splineFlag = 4;

} // namespace

AcDbObjectIterator* AcDbVertexCurve::vertexIterator() const
{
    assertReadEnabled();
    return new AcDbObjectIterator(subentities(), pendingSubentities());
}

Acad::ErrorStatus AcDbVertexCurve::setFlag(Adesk::Int16 flag, bool on)
{
    assertWriteEnabled();
    m_flags = static_cast<Adesk::Int16>(on ? m_flags | flag : m_flags & ~flag);
    return Acad::eOk;
}

// ---- 2D

AcDb2dPolyline::AcDb2dPolyline(AcDb::Poly2dType type, const AcGePoint3dArray& vertices, double elevation,
                               Adesk::Boolean closed, double startWidth, double endWidth, const AcGeDoubleArray* bulges,
                               const AcGeDoubleArray* widths) :
    m_elevation(0.0, 0.0, elevation),
    m_startWidth(startWidth),
    m_endWidth(endWidth)
{
    m_flags = static_cast<Adesk::Int16>((closed ? 1 : 0) | (type == AcDb::k2dFitCurvePoly ? curveFitFlag : 0) |
                                        (type >= AcDb::k2dQuadSplinePoly ? splineFlag : 0));
    m_type = type == AcDb::k2dQuadSplinePoly ? quadraticSpline : type == AcDb::k2dCubicSplinePoly ? cubicSpline : 0;
    for (int i = 0; i < vertices.length(); ++i) {
        const double bulge = bulges && i < bulges->length() ? bulges->at(i) : 0.0;
        const bool own = widths && 2 * i + 1 < widths->length();
        appendVertex(new AcDb2dVertex(AcGePoint3d(vertices[i].x, vertices[i].y, elevation), bulge,
                                      own ? widths->at(2 * i) : startWidth, own ? widths->at(2 * i + 1) : endWidth));
    }
}

AcDb::Poly2dType AcDb2dPolyline::polyType() const
{
    assertReadEnabled();
    if ((m_flags & splineFlag) != 0)
        return m_type == quadraticSpline ? AcDb::k2dQuadSplinePoly : AcDb::k2dCubicSplinePoly;
    return (m_flags & curveFitFlag) != 0 ? AcDb::k2dFitCurvePoly : AcDb::k2dSimplePoly;
}

Acad::ErrorStatus AcDb2dPolyline::setDefaultStartWidth(double width)
{
    assertWriteEnabled();
    m_startWidth = width;
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::setDefaultEndWidth(double width)
{
    assertWriteEnabled();
    m_endWidth = width;
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::setElevation(double elevation)
{
    assertWriteEnabled();
    m_elevation.z = elevation;
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::setThickness(double thickness)
{
    assertWriteEnabled();
    m_thickness = thickness;
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::setNormal(const AcGeVector3d& normal)
{
    assertWriteEnabled();
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    m_normal = normal.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::appendVertex(AcDb2dVertex* vertex)
{
    AcDbObjectId id;
    return appendVertex(id, vertex);
}

Acad::ErrorStatus AcDb2dPolyline::appendVertex(AcDbObjectId& id, AcDb2dVertex* vertex)
{
    assertWriteEnabled();
    return appendSubentity(id, vertex);
}

Acad::ErrorStatus AcDb2dPolyline::openVertex(AcDb2dVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                             bool openErased) const
{
    return acdbOpenObject(vertex, id, mode, openErased);
}

AcGePoint3d AcDb2dPolyline::vertexPosition(const AcDb2dVertex& vertex) const
{
    assertReadEnabled();
    const AcGePoint3d held = vertex.position();
    return ocsToWorld(AcGePoint3d(held.x, held.y, m_elevation.z), m_normal);
}

VertexPath AcDb2dPolyline::path() const
{
    assertReadEnabled();
    std::vector<VertexPath::Vertex> vertices;
    visitOwned<AcDb2dVertex>(subentities(), pendingSubentities(), AcDb::kForRead, [&](const AcDb2dVertex& vertex) {
        if (vertex.vertexType() != AcDb::k2dSplineCtlVertex) {
            const AcGePoint3d held = vertex.position();
            vertices.push_back({AcGePoint3d(held.x, held.y, m_elevation.z), vertex.bulge()});
        }
        return true;
    });
    return VertexPath(std::move(vertices), m_normal, isClosed() != Adesk::kFalse, m_thickness);
}

Acad::ErrorStatus AcDb2dPolyline::transformBy(const AcGeMatrix3d& matrix)
{
    assertWriteEnabled();
    const OcsTransform moved(m_normal, matrix);
    bool bulges = false;
    Acad::ErrorStatus es =
        visitOwned<AcDb2dVertex>(subentities(), pendingSubentities(), AcDb::kForRead, [&](const AcDb2dVertex& vertex) {
            bulges = bulges || vertex.bulge() != 0.0;
            return !bulges;
        });
    if (es != Acad::eOk)
        return es;
    if (!moved.isValid() || (bulges && !moved.keepsShapes()))
        return Acad::eInvalidInput;
    const double elevation = m_elevation.z;
    const double scale = moved.keepsShapes() ? moved.scaleAlong(0.0) : 1.0;
    m_elevation.z = moved.point(AcGePoint3d(0.0, 0.0, elevation)).z;
    m_startWidth *= scale;
    m_endWidth *= scale;
    m_thickness *= moved.normalScale();
    m_normal = moved.normal();
    return visitOwned<AcDb2dVertex>(subentities(), pendingSubentities(), AcDb::kForWrite, [&](AcDb2dVertex& vertex) {
        const AcGePoint3d held = vertex.position();
        vertex.setPosition(moved.point(AcGePoint3d(held.x, held.y, elevation)));
        if (moved.mirrors() && vertex.bulge() != 0.0)
            vertex.setBulge(-vertex.bulge());
        if (scale != 1.0) {
            vertex.setStartWidth(vertex.startWidth() * scale);
            vertex.setEndWidth(vertex.endWidth() * scale);
        }
        return true;
    });
}

// ---- 3D

AcDb3dPolyline::AcDb3dPolyline(AcDb::Poly3dType type, const AcGePoint3dArray& vertices, Adesk::Boolean closed)
{
    m_flags = static_cast<Adesk::Int16>(8 | (closed ? 1 : 0) | (type == AcDb::k3dSimplePoly ? 0 : splineFlag));
    m_type = type == AcDb::k3dQuadSplinePoly ? quadraticSpline : type == AcDb::k3dCubicSplinePoly ? cubicSpline : 0;
    for (const AcGePoint3d& point : vertices)
        appendVertex(new AcDb3dPolylineVertex(point));
}

AcDb::Poly3dType AcDb3dPolyline::polyType() const
{
    assertReadEnabled();
    if ((m_flags & splineFlag) == 0)
        return AcDb::k3dSimplePoly;
    return m_type == quadraticSpline ? AcDb::k3dQuadSplinePoly : AcDb::k3dCubicSplinePoly;
}

Acad::ErrorStatus AcDb3dPolyline::appendVertex(AcDb3dPolylineVertex* vertex)
{
    AcDbObjectId id;
    return appendVertex(id, vertex);
}

Acad::ErrorStatus AcDb3dPolyline::appendVertex(AcDbObjectId& id, AcDb3dPolylineVertex* vertex)
{
    assertWriteEnabled();
    return appendSubentity(id, vertex);
}

Acad::ErrorStatus AcDb3dPolyline::openVertex(AcDb3dPolylineVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                             bool openErased) const
{
    return acdbOpenObject(vertex, id, mode, openErased);
}

VertexPath AcDb3dPolyline::path() const
{
    assertReadEnabled();
    std::vector<VertexPath::Vertex> vertices;
    visitOwned<AcDb3dPolylineVertex>(subentities(), pendingSubentities(), AcDb::kForRead,
                                     [&](const AcDb3dPolylineVertex& vertex) {
                                         if (vertex.vertexType() != AcDb::k3dControlVertex)
                                             vertices.push_back({vertex.position(), 0.0});
                                         return true;
                                     });
    return VertexPath(std::move(vertices), AcGeVector3d::kZAxis, isClosed() != Adesk::kFalse);
}

Adesk::Boolean AcDb3dPolyline::isPlanar() const
{
    return path().liesInOnePlane();
}

Acad::ErrorStatus AcDb3dPolyline::transformBy(const AcGeMatrix3d& matrix)
{
    assertWriteEnabled();
    return visitOwned<AcDb3dPolylineVertex>(subentities(), pendingSubentities(), AcDb::kForWrite,
                                            [&](AcDb3dPolylineVertex& vertex) {
                                                vertex.transformBy(matrix);
                                                return true;
                                            });
}
