#include <algorithm>
#include <cmath>

#include "db/entities/OcsTransform.h"
#include "db/entities/VertexPath.h"

#include "dbents.h"
#include "dbpl.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbPolyline, AcDbCurve, LWPOLYLINE)

namespace {
constexpr Adesk::Int16 closedFlag = 1, plinegenFlag = 128;
}

AcDbPolyline::AcDbPolyline(unsigned int numVerts)
{
    m_vertices.reserve(numVerts);
}

VertexPath AcDbPolyline::path() const
{
    assertReadEnabled();
    return VertexPath(m_vertices, m_elevation, m_normal, (m_flags & closedFlag) != 0, m_thickness);
}

// ---- vertices

Acad::ErrorStatus AcDbPolyline::addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge,
                                            double startWidth, double endWidth, Adesk::Int32 identifier)
{
    assertWriteEnabled();
    if (index > numVerts())
        return Acad::eInvalidIndex;
    AcDbPolylineVertex vertex{point, bulge, std::max(startWidth, 0.0), std::max(endWidth, 0.0), identifier};
    if ((vertex.startWidth != m_constantWidth || vertex.endWidth != m_constantWidth) && m_constantWidth != 0.0) {
        if (startWidth < 0.0 && endWidth < 0.0)
            vertex.startWidth = vertex.endWidth = 0.0; // none of its own: the constant width counts
        else
            spreadConstantWidth();
    }
    m_vertices.insert(m_vertices.begin() + index, vertex);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::removeVertexAt(unsigned int index)
{
    assertWriteEnabled();
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    m_vertices.erase(m_vertices.begin() + index);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint3d& point) const
{
    AcGePoint2d flat;
    const Acad::ErrorStatus es = getPointAt(index, flat);
    if (es == Acad::eOk)
        point = ocsToWorld(AcGePoint3d(flat.x, flat.y, m_elevation), m_normal);
    return es;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint2d& point) const
{
    assertReadEnabled();
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    point = m_vertices[index].point;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setPointAt(unsigned int index, const AcGePoint2d& point)
{
    assertWriteEnabled();
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    m_vertices[index].point = point;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getBulgeAt(unsigned int index, double& bulge) const
{
    assertReadEnabled();
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    bulge = m_vertices[index].bulge;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setBulgeAt(unsigned int index, double bulge)
{
    assertWriteEnabled();
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    m_vertices[index].bulge = bulge;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getVertexIdentifierAt(unsigned int index, Adesk::Int32& identifier) const
{
    assertReadEnabled();
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    identifier = m_vertices[index].identifier;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setVertexIdentifierAt(unsigned int index, Adesk::Int32 identifier)
{
    assertWriteEnabled();
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    m_vertices[index].identifier = identifier;
    return Acad::eOk;
}

// ---- widths: a vertex without widths of its own has the constant one

Acad::ErrorStatus AcDbPolyline::getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const
{
    assertReadEnabled();
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    const AcDbPolylineVertex& vertex = m_vertices[index];
    const bool own = vertex.startWidth != 0.0 || vertex.endWidth != 0.0;
    startWidth = own ? vertex.startWidth : m_constantWidth;
    endWidth = own ? vertex.endWidth : m_constantWidth;
    return Acad::eOk;
}

void AcDbPolyline::spreadConstantWidth()
{
    for (AcDbPolylineVertex& vertex : m_vertices)
        if (vertex.startWidth == 0.0 && vertex.endWidth == 0.0)
            vertex.startWidth = vertex.endWidth = m_constantWidth;
    m_constantWidth = 0.0;
}

Acad::ErrorStatus AcDbPolyline::setWidthsAt(unsigned int index, double startWidth, double endWidth)
{
    assertWriteEnabled();
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    if (!(startWidth >= 0.0 && endWidth >= 0.0))
        return Acad::eInvalidInput;
    spreadConstantWidth();
    m_vertices[index].startWidth = startWidth;
    m_vertices[index].endWidth = endWidth;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getConstantWidth(double& width) const
{
    assertReadEnabled();
    double common = m_constantWidth;
    for (unsigned int i = 0; i < numVerts(); ++i) {
        double start = 0.0, end = 0.0;
        getWidthsAt(i, start, end);
        if (i == 0)
            common = start;
        if (start != common || end != common)
            return Acad::eInvalidInput;
    }
    width = common;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setConstantWidth(double width)
{
    assertWriteEnabled();
    if (!(width >= 0.0))
        return Acad::eInvalidInput;
    for (AcDbPolylineVertex& vertex : m_vertices)
        vertex.startWidth = vertex.endWidth = 0.0;
    m_constantWidth = width;
    return Acad::eOk;
}

bool AcDbPolyline::hasWidth() const
{
    assertReadEnabled();
    return m_constantWidth != 0.0 || std::ranges::any_of(m_vertices, [](const AcDbPolylineVertex& v) {
               return v.startWidth != 0.0 || v.endWidth != 0.0;
           });
}

bool AcDbPolyline::hasBulges() const
{
    assertReadEnabled();
    return std::ranges::any_of(m_vertices, [](const AcDbPolylineVertex& v) { return v.bulge != 0.0; });
}

// ---- segments

AcDbPolyline::SegType AcDbPolyline::segType(unsigned int index) const
{
    const VertexPath whole = path();
    if (index >= numVerts())
        return kEmpty;
    if (index >= whole.segmentCount())
        return kPoint;
    const PathSegment segment = whole.segment(index);
    if (segment.start.isEqualTo(segment.end))
        return kCoincident;
    return segment.isArc() ? kArc : kLine;
}

Acad::ErrorStatus AcDbPolyline::getLineSegAt(unsigned int index, AcGeLineSeg2d& line) const
{
    const VertexPath whole = path();
    if (index >= whole.segmentCount())
        return Acad::eInvalidIndex;
    const PathSegment segment = whole.segment(index);
    if (segment.isArc())
        return Acad::eNotApplicable;
    line.set(AcGePoint2d(segment.start.x, segment.start.y), AcGePoint2d(segment.end.x, segment.end.y));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getLineSegAt(unsigned int index, AcGeLineSeg3d& line) const
{
    AcGeLineSeg2d flat;
    const Acad::ErrorStatus es = getLineSegAt(index, flat);
    if (es != Acad::eOk)
        return es;
    const AcGePoint2d ends[] = {flat.startPoint(), flat.endPoint()};
    line.set(ocsToWorld(AcGePoint3d(ends[0].x, ends[0].y, m_elevation), m_normal),
             ocsToWorld(AcGePoint3d(ends[1].x, ends[1].y, m_elevation), m_normal));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getArcSegAt(unsigned int index, AcGeCircArc2d& arc) const
{
    const VertexPath whole = path();
    if (index >= whole.segmentCount())
        return Acad::eInvalidIndex;
    const PathSegment segment = whole.segment(index);
    if (!segment.isArc())
        return Acad::eNotApplicable;
    arc = AcGeCircArc2d(AcGePoint2d(segment.start.x, segment.start.y), AcGePoint2d(segment.end.x, segment.end.y),
                        segment.bulge, Adesk::kFalse);
    return Acad::eOk;
}

// ---- the whole

void AcDbPolyline::setClosed(Adesk::Boolean closed)
{
    assertWriteEnabled();
    m_flags = static_cast<Adesk::Int16>(closed ? m_flags | closedFlag : m_flags & ~closedFlag);
}

void AcDbPolyline::setPlinegen(bool plinegen)
{
    assertWriteEnabled();
    m_flags = static_cast<Adesk::Int16>(plinegen ? m_flags | plinegenFlag : m_flags & ~plinegenFlag);
}

Acad::ErrorStatus AcDbPolyline::setElevation(double elevation)
{
    assertWriteEnabled();
    m_elevation = elevation;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setThickness(double thickness)
{
    assertWriteEnabled();
    m_thickness = thickness;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setNormal(const AcGeVector3d& normal)
{
    assertWriteEnabled();
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    m_normal = normal.normal();
    return Acad::eOk;
}

// ---- as a curve

Acad::ErrorStatus AcDbPolyline::reverseCurve()
{
    assertWriteEnabled();
    if (m_vertices.empty())
        return Acad::eDegenerateGeometry;
    // What belongs to a segment stays with it: the segment that left a vertex now arrives there.
    std::ranges::reverse(m_vertices);
    std::vector<AcDbPolylineVertex> turned = m_vertices;
    const std::size_t count = turned.size();
    for (std::size_t i = 0; i < count; ++i) {
        const AcDbPolylineVertex& segment = m_vertices[(i + 1) % count];
        turned[i].bulge = -segment.bulge;
        turned[i].startWidth = segment.endWidth;
        turned[i].endWidth = segment.startWidth;
    }
    m_vertices.swap(turned);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::transformBy(const AcGeMatrix3d& matrix)
{
    assertWriteEnabled();
    const OcsTransform moved(m_normal, matrix);
    if (!moved.isValid() || (hasBulges() && !moved.keepsShapes()))
        return Acad::eInvalidInput;
    const double elevation = m_elevation;
    m_elevation = moved.point(AcGePoint3d(0.0, 0.0, elevation)).z;
    for (AcDbPolylineVertex& vertex : m_vertices) {
        const AcGePoint3d point = moved.point(AcGePoint3d(vertex.point.x, vertex.point.y, elevation));
        vertex.point = AcGePoint2d(point.x, point.y);
        if (moved.mirrors())
            vertex.bulge = -vertex.bulge;
    }
    if (moved.keepsShapes()) {
        const double scale = moved.scaleAlong(0.0);
        m_constantWidth *= scale;
        for (AcDbPolylineVertex& vertex : m_vertices) {
            vertex.startWidth *= scale;
            vertex.endWidth *= scale;
        }
    }
    m_thickness *= moved.normalScale();
    m_normal = moved.normal();
    return Acad::eOk;
}
