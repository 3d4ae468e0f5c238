#include <cstdlib>

#include "dbents.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbSequenceEnd, AcDbEntity, SEQEND)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbVertex, AcDbEntity)
ACRX_DXF_DEFINE_MEMBERS(AcDb2dVertex, AcDbVertex, VERTEX)
ACRX_DXF_DEFINE_MEMBERS(AcDb3dPolylineVertex, AcDbVertex, VERTEX)
ACRX_DXF_DEFINE_MEMBERS(AcDbPolygonMeshVertex, AcDbVertex, VERTEX)
ACRX_DXF_DEFINE_MEMBERS(AcDbPolyFaceMeshVertex, AcDbVertex, VERTEX)
ACRX_DXF_DEFINE_MEMBERS(AcDbFaceRecord, AcDbVertex, VERTEX)

namespace {

enum VertexFlags : Adesk::Int16 { curveFit = 1, splineVertex = 8, splineControl = 16 };

AcDb::Vertex3dType typeOf(Adesk::Int16 flags)
{
    if ((flags & splineControl) != 0)
        return AcDb::k3dControlVertex;
    return (flags & splineVertex) != 0 ? AcDb::k3dFitVertex : AcDb::k3dSimpleVertex;
}

} // namespace

// ---- iterating

void AcDbObjectIterator::start(bool atBeginning, bool skipDeleted)
{
    m_at = atBeginning ? -1 : count();
    step(!atBeginning, skipDeleted);
}

bool AcDbObjectIterator::done() const
{
    return m_at < 0 || m_at >= count();
}

void AcDbObjectIterator::step(bool backwards, bool skipDeleted)
{
    do
        m_at += backwards ? -1 : 1;
    while (!done() && skipDeleted && objectId().isErased());
}

AcDbObjectId AcDbObjectIterator::objectId() const
{
    return !done() && m_at < m_ids.length() ? m_ids[m_at] : AcDbObjectId();
}

AcDbEntity* AcDbObjectIterator::entity() const
{
    return !done() && m_at >= m_ids.length() ? m_pending[static_cast<std::size_t>(m_at - m_ids.length())] : nullptr;
}

// ---- any vertex

Acad::ErrorStatus AcDbVertex::setPosition(const AcGePoint3d& position)
{
    assertWriteEnabled();
    m_position = position;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbVertex::getGeomExtents(AcDbExtents& extents) const
{
    assertReadEnabled();
    return extents.set(m_position, m_position);
}

Acad::ErrorStatus AcDbVertex::transformBy(const AcGeMatrix3d& matrix)
{
    assertWriteEnabled();
    m_position = matrix * m_position;
    return Acad::eOk;
}

// ---- of polylines and polygon meshes

AcDb2dVertex::AcDb2dVertex(const AcGePoint3d& position, double bulge, double startWidth, double endWidth,
                           double tangent) :
    AcDbVertex(position),
    m_bulge(bulge),
    m_startWidth(startWidth),
    m_endWidth(endWidth),
    m_tangent(tangent)
{
}

AcDb::Vertex2dType AcDb2dVertex::vertexType() const
{
    assertReadEnabled();
    if ((m_flags & splineControl) != 0)
        return AcDb::k2dSplineCtlVertex;
    if ((m_flags & splineVertex) != 0)
        return AcDb::k2dSplineFitVertex;
    return (m_flags & curveFit) != 0 ? AcDb::k2dCurveFitVertex : AcDb::k2dVertex;
}

Acad::ErrorStatus AcDb2dVertex::setBulge(double bulge)
{
    assertWriteEnabled();
    m_bulge = bulge;
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dVertex::setStartWidth(double width)
{
    assertWriteEnabled();
    m_startWidth = width;
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dVertex::setEndWidth(double width)
{
    assertWriteEnabled();
    m_endWidth = width;
    return Acad::eOk;
}

AcDb::Vertex3dType AcDb3dPolylineVertex::vertexType() const
{
    assertReadEnabled();
    return typeOf(m_flags);
}

AcDb::Vertex3dType AcDbPolygonMeshVertex::vertexType() const
{
    assertReadEnabled();
    return typeOf(m_flags);
}

// ---- faces of a polyface mesh

AcDbFaceRecord::AcDbFaceRecord(Adesk::Int16 vtx0, Adesk::Int16 vtx1, Adesk::Int16 vtx2, Adesk::Int16 vtx3) :
    m_corner0(vtx0),
    m_corner1(vtx1),
    m_corner2(vtx2),
    m_corner3(vtx3)
{
    m_flags = 128;
}

Adesk::Int16* AcDbFaceRecord::cornerAt(Adesk::UInt16 corner)
{
    Adesk::Int16* const corners[] = {&m_corner0, &m_corner1, &m_corner2, &m_corner3};
    return corner < 4 ? corners[corner] : nullptr;
}

const Adesk::Int16* AcDbFaceRecord::cornerAt(Adesk::UInt16 corner) const
{
    return const_cast<AcDbFaceRecord*>(this)->cornerAt(corner);
}

Acad::ErrorStatus AcDbFaceRecord::getVertexAt(Adesk::UInt16 corner, Adesk::Int16& number) const
{
    assertReadEnabled();
    const Adesk::Int16* held = cornerAt(corner);
    if (!held)
        return Acad::eInvalidIndex;
    number = static_cast<Adesk::Int16>(std::abs(*held));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFaceRecord::setVertexAt(Adesk::UInt16 corner, Adesk::Int16 number)
{
    assertWriteEnabled();
    Adesk::Int16* held = cornerAt(corner);
    if (!held)
        return Acad::eInvalidIndex;
    *held = number;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFaceRecord::isEdgeVisibleAt(Adesk::UInt16 edge, Adesk::Boolean& visible) const
{
    assertReadEnabled();
    const Adesk::Int16* held = cornerAt(edge);
    if (!held)
        return Acad::eInvalidIndex;
    visible = *held > 0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbFaceRecord::setEdge(Adesk::UInt16 edge, bool visible)
{
    assertWriteEnabled();
    Adesk::Int16* held = cornerAt(edge);
    if (!held)
        return Acad::eInvalidIndex;
    *held = static_cast<Adesk::Int16>(visible ? std::abs(*held) : -std::abs(*held));
    return Acad::eOk;
}

/// A face shows nothing by itself: it names vertices of its mesh.
Acad::ErrorStatus AcDbFaceRecord::getGeomExtents(AcDbExtents&) const
{
    return Acad::eInvalidExtents;
}
