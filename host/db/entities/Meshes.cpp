#include <cstdlib>

#include "db/entities/OwnedVertices.h"

#include "dbents.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbPolygonMesh, AcDbEntity, POLYLINE)
ACRX_DXF_DEFINE_MEMBERS(AcDbPolyFaceMesh, AcDbEntity, POLYLINE)

namespace {

constexpr Adesk::Int16 smoothedFlag = 4;

void addFace(const AcDbEntity& mesh, AcDbFace* face, AcDbVoidPtrArray& entities)
{
    face->setPropertiesFrom(&mesh);
    entities.append(static_cast<AcDbEntity*>(face));
}

} // namespace

AcDbObjectIterator* AcDbVertexMesh::vertexIterator() const
{
    assertReadEnabled();
    return new AcDbObjectIterator(subentities(), pendingSubentities());
}

std::vector<AcGePoint3d> AcDbVertexMesh::positions() const
{
    assertReadEnabled();
    std::vector<AcGePoint3d> points;
    visitOwned<AcDbVertex>(subentities(), pendingSubentities(), AcDb::kForRead, [&](const AcDbVertex& vertex) {
        const auto* ofMesh = AcDbPolygonMeshVertex::cast(&vertex);
        const bool control = ofMesh && (m_flags & smoothedFlag) != 0 && ofMesh->vertexType() == AcDb::k3dControlVertex;
        if (!control && !vertex.isKindOf(AcDbFaceRecord::desc()))
            points.push_back(vertex.position());
        return true;
    });
    return points;
}

std::vector<AcDbFaceRecord> AcDbVertexMesh::faces() const
{
    assertReadEnabled();
    std::vector<AcDbFaceRecord> records;
    visitOwned<AcDbFaceRecord>(subentities(), pendingSubentities(), AcDb::kForRead, [&](const AcDbFaceRecord& face) {
        Adesk::Int16 corners[4] = {};
        for (Adesk::UInt16 i = 0; i < 4; ++i) {
            Adesk::Boolean visible = Adesk::kTrue;
            face.getVertexAt(i, corners[i]);
            face.isEdgeVisibleAt(i, visible);
            if (!visible)
                corners[i] = static_cast<Adesk::Int16>(-corners[i]);
        }
        records.emplace_back(corners[0], corners[1], corners[2], corners[3]);
        return true;
    });
    return records;
}

Acad::ErrorStatus AcDbVertexMesh::getGeomExtents(AcDbExtents& extents) const
{
    AcDbExtents box;
    for (const AcGePoint3d& point : positions())
        box.addPoint(point);
    if (box.isEmpty())
        return Acad::eInvalidExtents;
    extents = box;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbVertexMesh::transformBy(const AcGeMatrix3d& matrix)
{
    assertWriteEnabled();
    return visitOwned<AcDbVertex>(subentities(), pendingSubentities(), AcDb::kForWrite, [&](AcDbVertex& vertex) {
        vertex.transformBy(matrix);
        return true;
    });
}

// ---- M × N

AcDbPolygonMesh::AcDbPolygonMesh(AcDb::PolyMeshType type, Adesk::Int16 mSize, Adesk::Int16 nSize,
                                 const AcGePoint3dArray& vertices, Adesk::Boolean mClosed, Adesk::Boolean nClosed) :
    m_type(static_cast<Adesk::Int16>(type))
{
    m_flags = static_cast<Adesk::Int16>(16 | (mClosed ? 1 : 0) | (nClosed ? 32 : 0) | (m_type != 0 ? smoothedFlag : 0));
    m_rows = mSize;
    m_columns = nSize;
    for (const AcGePoint3d& point : vertices)
        appendVertex(new AcDbPolygonMeshVertex(point));
}

Acad::ErrorStatus AcDbPolygonMesh::setMSize(Adesk::Int16 size)
{
    assertWriteEnabled();
    m_rows = size;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolygonMesh::setNSize(Adesk::Int16 size)
{
    assertWriteEnabled();
    m_columns = size;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolygonMesh::appendVertex(AcDbPolygonMeshVertex* vertex)
{
    AcDbObjectId id;
    return appendVertex(id, vertex);
}

Acad::ErrorStatus AcDbPolygonMesh::appendVertex(AcDbObjectId& id, AcDbPolygonMeshVertex* vertex)
{
    assertWriteEnabled();
    return appendSubentity(id, vertex);
}

Acad::ErrorStatus AcDbPolygonMesh::openVertex(AcDbPolygonMeshVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                              bool openErased) const
{
    return acdbOpenObject(vertex, id, mode, openErased);
}

Acad::ErrorStatus AcDbPolygonMesh::explode(AcDbVoidPtrArray& entities) const
{
    const std::vector<AcGePoint3d> points = positions();
    const bool smoothed = (m_flags & smoothedFlag) != 0;
    const int rows = smoothed ? m_smoothRows : m_rows, columns = smoothed ? m_smoothColumns : m_columns;
    if (rows < 2 || columns < 2 || points.size() < static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns))
        return Acad::eDegenerateGeometry;
    const auto at = [&](int row, int column) {
        return points[static_cast<std::size_t>(row % rows) * static_cast<std::size_t>(columns) +
                      static_cast<std::size_t>(column % columns)];
    };
    const int lastRow = isMClosed() ? rows : rows - 1, lastColumn = isNClosed() ? columns : columns - 1;
    for (int row = 0; row < lastRow; ++row)
        for (int column = 0; column < lastColumn; ++column)
            addFace(*this,
                    new AcDbFace(at(row, column), at(row, column + 1), at(row + 1, column + 1), at(row + 1, column)),
                    entities);
    return Acad::eOk;
}

// ---- any faces

Acad::ErrorStatus AcDbPolyFaceMesh::appendVertex(AcDbPolyFaceMeshVertex* vertex)
{
    AcDbObjectId id;
    return appendVertex(id, vertex);
}

Acad::ErrorStatus AcDbPolyFaceMesh::appendVertex(AcDbObjectId& id, AcDbPolyFaceMeshVertex* vertex)
{
    assertWriteEnabled();
    const Acad::ErrorStatus es = appendSubentity(id, vertex);
    if (es == Acad::eOk)
        ++m_rows;
    return es;
}

Acad::ErrorStatus AcDbPolyFaceMesh::appendFaceRecord(AcDbFaceRecord* face)
{
    AcDbObjectId id;
    return appendFaceRecord(id, face);
}

Acad::ErrorStatus AcDbPolyFaceMesh::appendFaceRecord(AcDbObjectId& id, AcDbFaceRecord* face)
{
    assertWriteEnabled();
    const Acad::ErrorStatus es = appendSubentity(id, face);
    if (es == Acad::eOk)
        ++m_columns;
    return es;
}

Acad::ErrorStatus AcDbPolyFaceMesh::openVertex(AcDbVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                               bool openErased) const
{
    return acdbOpenObject(vertex, id, mode, openErased);
}

Acad::ErrorStatus AcDbPolyFaceMesh::explode(AcDbVoidPtrArray& entities) const
{
    const std::vector<AcGePoint3d> points = positions();
    for (const AcDbFaceRecord& record : faces()) {
        std::vector<AcGePoint3d> corners;
        Adesk::Boolean visible[4] = {};
        for (Adesk::UInt16 i = 0; i < 4; ++i) {
            Adesk::Int16 number = 0;
            record.getVertexAt(i, number);
            if (number < 1 || static_cast<std::size_t>(number) > points.size())
                continue; // none, or a vertex that the mesh lacks
            record.isEdgeVisibleAt(i, visible[corners.size()]);
            corners.push_back(points[static_cast<std::size_t>(number) - 1]);
        }
        if (corners.size() == 3)
            addFace(*this,
                    new AcDbFace(corners[0], corners[1], corners[2], visible[0], visible[1], visible[2], visible[2]),
                    entities);
        else if (corners.size() == 4)
            addFace(*this,
                    new AcDbFace(corners[0], corners[1], corners[2], corners[3], visible[0], visible[1], visible[2],
                                 visible[3]),
                    entities);
    }
    return Acad::eOk;
}
