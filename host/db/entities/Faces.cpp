#include "db/entities/OcsTransform.h"

#include "dbents.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbFace, AcDbEntity, 3DFACE)
ACRX_DXF_DEFINE_MEMBERS(AcDbSolid, AcDbEntity, SOLID)
ACRX_DXF_DEFINE_MEMBERS(AcDbTrace, AcDbEntity, TRACE)

AcDbFace::AcDbFace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3,
                   Adesk::Boolean e0vis, Adesk::Boolean e1vis, Adesk::Boolean e2vis, Adesk::Boolean e3vis) :
    m_corner0(p0),
    m_corner1(p1),
    m_corner2(p2),
    m_corner3(p3),
    m_invisibleEdges(static_cast<Adesk::Int16>((e0vis ? 0 : 1) | (e1vis ? 0 : 2) | (e2vis ? 0 : 4) | (e3vis ? 0 : 8)))
{
}

AcDbFace::AcDbFace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, Adesk::Boolean e0vis,
                   Adesk::Boolean e1vis, Adesk::Boolean e2vis, Adesk::Boolean e3vis) :
    AcDbFace(p0, p1, p2, p2, e0vis, e1vis, e2vis, e3vis)
{
}

AcGePoint3d* AcDbFace::cornerAt(Adesk::UInt16 corner)
{
    AcGePoint3d* const corners[] = {&m_corner0, &m_corner1, &m_corner2, &m_corner3};
    return corner < 4 ? corners[corner] : nullptr;
}

const AcGePoint3d* AcDbFace::cornerAt(Adesk::UInt16 corner) const
{
    return const_cast<AcDbFace*>(this)->cornerAt(corner);
}

Acad::ErrorStatus AcDbFace::getVertexAt(Adesk::UInt16 corner, AcGePoint3d& point) const
{
    assertReadEnabled();
    const AcGePoint3d* held = cornerAt(corner);
    if (!held)
        return Acad::eInvalidIndex;
    point = *held;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFace::setVertexAt(Adesk::UInt16 corner, const AcGePoint3d& point)
{
    assertWriteEnabled();
    AcGePoint3d* held = cornerAt(corner);
    if (!held)
        return Acad::eInvalidIndex;
    *held = point;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFace::isEdgeVisibleAt(Adesk::UInt16 edge, Adesk::Boolean& visible) const
{
    assertReadEnabled();
    if (edge > 3)
        return Acad::eInvalidIndex;
    visible = (m_invisibleEdges & 1 << edge) == 0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFace::makeEdgeVisibleAt(Adesk::UInt16 edge)
{
    assertWriteEnabled();
    if (edge > 3)
        return Acad::eInvalidIndex;
    m_invisibleEdges = static_cast<Adesk::Int16>(m_invisibleEdges & ~(1 << edge));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFace::makeEdgeInvisibleAt(Adesk::UInt16 edge)
{
    assertWriteEnabled();
    if (edge > 3)
        return Acad::eInvalidIndex;
    m_invisibleEdges = static_cast<Adesk::Int16>(m_invisibleEdges | 1 << edge);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFace::getGeomExtents(AcDbExtents& extents) const
{
    assertReadEnabled();
    AcDbExtents box;
    for (const AcGePoint3d& corner : {m_corner0, m_corner1, m_corner2, m_corner3})
        box.addPoint(corner);
    extents = box;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFace::transformBy(const AcGeMatrix3d& matrix)
{
    assertWriteEnabled();
    for (AcGePoint3d* corner : {&m_corner0, &m_corner1, &m_corner2, &m_corner3})
        *corner = matrix * *corner;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFace::explode(AcDbVoidPtrArray& entities) const
{
    assertReadEnabled();
    const AcGePoint3d corners[] = {m_corner0, m_corner1, m_corner2, m_corner3};
    for (int edge = 0; edge < 4; ++edge) {
        const AcGePoint3d &from = corners[edge], &to = corners[(edge + 1) % 4];
        if ((m_invisibleEdges & 1 << edge) != 0 || from.isEqualTo(to))
            continue;
        auto* line = new AcDbLine(from, to);
        line->setPropertiesFrom(this);
        entities.append(static_cast<AcDbEntity*>(line));
    }
    return Acad::eOk;
}

// ---- solids, traces

void AcDbFilledQuad::setCorners(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2,
                                const AcGePoint3d& p3)
{
    m_corner0 = p0;
    m_corner1 = p1;
    m_corner2 = p2;
    m_corner3 = p3;
}

AcGePoint3d* AcDbFilledQuad::cornerAt(Adesk::UInt16 corner)
{
    AcGePoint3d* const corners[] = {&m_corner0, &m_corner1, &m_corner2, &m_corner3};
    return corner < 4 ? corners[corner] : nullptr;
}

const AcGePoint3d* AcDbFilledQuad::cornerAt(Adesk::UInt16 corner) const
{
    return const_cast<AcDbFilledQuad*>(this)->cornerAt(corner);
}

Acad::ErrorStatus AcDbFilledQuad::getPointAt(Adesk::UInt16 corner, AcGePoint3d& point) const
{
    assertReadEnabled();
    const AcGePoint3d* held = cornerAt(corner);
    if (!held)
        return Acad::eInvalidIndex;
    point = ocsToWorld(*held, m_normal);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFilledQuad::setPointAt(Adesk::UInt16 corner, const AcGePoint3d& point)
{
    assertWriteEnabled();
    AcGePoint3d* held = cornerAt(corner);
    if (!held)
        return Acad::eInvalidIndex;
    *held = worldToOcs(point, m_normal);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFilledQuad::setThickness(double thickness)
{
    assertWriteEnabled();
    m_thickness = thickness;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFilledQuad::setNormal(const AcGeVector3d& normal)
{
    assertWriteEnabled();
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    m_normal = normal.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFilledQuad::getGeomExtents(AcDbExtents& extents) const
{
    assertReadEnabled();
    AcDbExtents box;
    for (const AcGePoint3d& corner : {m_corner0, m_corner1, m_corner2, m_corner3}) {
        const AcGePoint3d point = ocsToWorld(corner, m_normal);
        box.addPoint(point);
        box.addPoint(point + m_normal * m_thickness);
    }
    extents = box;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFilledQuad::transformBy(const AcGeMatrix3d& matrix)
{
    assertWriteEnabled();
    const OcsTransform moved(m_normal, matrix);
    if (!moved.isValid())
        return Acad::eInvalidInput;
    for (AcGePoint3d* corner : {&m_corner0, &m_corner1, &m_corner2, &m_corner3})
        *corner = moved.point(*corner);
    m_thickness *= moved.normalScale();
    m_normal = moved.normal();
    return Acad::eOk;
}
