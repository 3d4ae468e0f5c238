#pragma once

#include <vector>

#include "dbcurve.h"
#include "gedblar.h"
#include "gept3dar.h"

/// Entities made of other entities: 2D and 3D polylines, meshes, and their vertices. Part of dbents.h.
/// A vertex belongs to its owner from the moment it is appended. Vertices appended to an owner in a database get an id
/// and stay open for write.

class AcDbObjectIterator;

/// Ends the vertices or attributes of an entity in the drawing file.
class AcDbSequenceEnd : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbSequenceEnd);
    AcDbSequenceEnd() = default;
    AcRxObject* clone() const override { return new AcDbSequenceEnd(*this); }

protected:
    AcDbSequenceEnd(const AcDbSequenceEnd&) = default;
};

class AcDbVertex : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbVertex);
    /// As the file holds it: world coordinates, save for 2D polylines, whose own plane counts.
    AcGePoint3d position() const { return m_position; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;

protected:
    AcDbVertex() = default;
    explicit AcDbVertex(const AcGePoint3d& position) : m_position(position) {}
    AcDbVertex(const AcDbVertex&) = default;
    AcGePoint3d m_position;
    Adesk::Int16 m_flags = 0;

private:
    friend struct DxfFieldsOfVertices;
};

/// Vertex of a 2D polyline; its position is in the polyline's plane.
class AcDb2dVertex : public AcDbVertex {
public:
    ACRX_DECLARE_MEMBERS(AcDb2dVertex);
    AcDb2dVertex() = default;
    explicit AcDb2dVertex(const AcGePoint3d& position, double bulge = 0.0, double startWidth = 0.0,
                          double endWidth = 0.0, double tangent = 0.0);
    AcRxObject* clone() const override { return new AcDb2dVertex(*this); }

    AcDb::Vertex2dType vertexType() const;
    double bulge() const { return m_bulge; }
    Acad::ErrorStatus setBulge(double bulge);
    double startWidth() const { return m_startWidth; }
    Acad::ErrorStatus setStartWidth(double width);
    double endWidth() const { return m_endWidth; }
    Acad::ErrorStatus setEndWidth(double width);
    double tangent() const { return m_tangent; }
    Adesk::Boolean isTangentUsed() const { return (m_flags & 2) != 0; }

protected:
    AcDb2dVertex(const AcDb2dVertex&) = default;

private:
    friend struct DxfFieldsOfVertices;
    double m_bulge = 0.0, m_startWidth = 0.0, m_endWidth = 0.0, m_tangent = 0.0;
};

class AcDb3dPolylineVertex : public AcDbVertex {
public:
    ACRX_DECLARE_MEMBERS(AcDb3dPolylineVertex);
    AcDb3dPolylineVertex() { m_flags = 32; }
    explicit AcDb3dPolylineVertex(const AcGePoint3d& position) : AcDbVertex(position) { m_flags = 32; }
    AcRxObject* clone() const override { return new AcDb3dPolylineVertex(*this); }
    AcDb::Vertex3dType vertexType() const;

protected:
    AcDb3dPolylineVertex(const AcDb3dPolylineVertex&) = default;
};

class AcDbPolygonMeshVertex : public AcDbVertex {
public:
    ACRX_DECLARE_MEMBERS(AcDbPolygonMeshVertex);
    AcDbPolygonMeshVertex() { m_flags = 64; }
    explicit AcDbPolygonMeshVertex(const AcGePoint3d& position) : AcDbVertex(position) { m_flags = 64; }
    AcRxObject* clone() const override { return new AcDbPolygonMeshVertex(*this); }
    AcDb::Vertex3dType vertexType() const;

protected:
    AcDbPolygonMeshVertex(const AcDbPolygonMeshVertex&) = default;
};

class AcDbPolyFaceMeshVertex : public AcDbVertex {
public:
    ACRX_DECLARE_MEMBERS(AcDbPolyFaceMeshVertex);
    AcDbPolyFaceMeshVertex() { m_flags = 192; }
    explicit AcDbPolyFaceMeshVertex(const AcGePoint3d& position) : AcDbVertex(position) { m_flags = 192; }
    AcRxObject* clone() const override { return new AcDbPolyFaceMeshVertex(*this); }

protected:
    AcDbPolyFaceMeshVertex(const AcDbPolyFaceMeshVertex&) = default;
};

/// One face of a polyface mesh: up to four vertices by their 1-based numbers, 0 for none. The edge that follows a
/// negative number is invisible.
class AcDbFaceRecord : public AcDbVertex {
public:
    ACRX_DECLARE_MEMBERS(AcDbFaceRecord);
    AcDbFaceRecord() { m_flags = 128; }
    AcDbFaceRecord(Adesk::Int16 vtx0, Adesk::Int16 vtx1, Adesk::Int16 vtx2, Adesk::Int16 vtx3);
    AcRxObject* clone() const override { return new AcDbFaceRecord(*this); }

    /// The number is never negative.
    Acad::ErrorStatus getVertexAt(Adesk::UInt16 corner, Adesk::Int16& number) const;
    Acad::ErrorStatus setVertexAt(Adesk::UInt16 corner, Adesk::Int16 number);
    Acad::ErrorStatus isEdgeVisibleAt(Adesk::UInt16 edge, Adesk::Boolean& visible) const;
    Acad::ErrorStatus makeEdgeInvisibleAt(Adesk::UInt16 edge) { return setEdge(edge, false); }
    Acad::ErrorStatus makeEdgeVisibleAt(Adesk::UInt16 edge) { return setEdge(edge, true); }
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d&) override { return Acad::eOk; }

    AcDbFaceRecord(const AcDbFaceRecord&) = default;

private:
    friend struct DxfFieldsOfVertices;
    Adesk::Int16 m_corner0 = 0, m_corner1 = 0, m_corner2 = 0, m_corner3 = 0;
    Acad::ErrorStatus setEdge(Adesk::UInt16 edge, bool visible);
    Adesk::Int16* cornerAt(Adesk::UInt16 corner);
    const Adesk::Int16* cornerAt(Adesk::UInt16 corner) const;
};

/// What polylines made of vertex entities share.
class AcDbVertexCurve : public AcDbPathCurve {
public:
    Adesk::Boolean isClosed() const override { return (m_flags & 1) != 0; }
    Acad::ErrorStatus makeClosed() { return setFlag(1, true); }
    Acad::ErrorStatus makeOpen() { return setFlag(1, false); }
    /// For the caller to delete.
    AcDbObjectIterator* vertexIterator() const;

protected:
    AcDbVertexCurve() = default;
    AcDbVertexCurve(const AcDbVertexCurve&) = default;
    Acad::ErrorStatus setFlag(Adesk::Int16 flag, bool on);
    Adesk::Int16 m_flags = 0;
    Adesk::Int16 m_type = 0; // 0 simple, 5 quadratic, 6 cubic spline

private:
    friend struct DxfFieldsOfVertices;
};

/// Polyline of a plane, its vertices entities of their own.
class AcDb2dPolyline : public AcDbVertexCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDb2dPolyline);
    AcDb2dPolyline() = default;
    AcDb2dPolyline(AcDb::Poly2dType type, const AcGePoint3dArray& vertices, double elevation = 0.0,
                   Adesk::Boolean closed = Adesk::kFalse, double startWidth = 0.0, double endWidth = 0.0,
                   const AcGeDoubleArray* bulges = nullptr, const AcGeDoubleArray* widths = nullptr);
    AcRxObject* clone() const override { return new AcDb2dPolyline(*this); }

    AcDb::Poly2dType polyType() const;
    double defaultStartWidth() const { return m_startWidth; }
    Acad::ErrorStatus setDefaultStartWidth(double width);
    double defaultEndWidth() const { return m_endWidth; }
    Acad::ErrorStatus setDefaultEndWidth(double width);
    double elevation() const { return m_elevation.z; }
    Acad::ErrorStatus setElevation(double elevation);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

    Acad::ErrorStatus appendVertex(AcDb2dVertex* vertex);
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDb2dVertex* vertex);
    Acad::ErrorStatus openVertex(AcDb2dVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErased = false) const;
    /// In the world.
    AcGePoint3d vertexPosition(const AcDb2dVertex& vertex) const;

    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;

protected:
    AcDb2dPolyline(const AcDb2dPolyline&) = default;
    VertexPath path() const override;

private:
    friend struct DxfFieldsOfVertices;
    AcGePoint3d m_elevation; // its z counts
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
    double m_startWidth = 0.0, m_endWidth = 0.0, m_thickness = 0.0;
};

class AcDb3dPolyline : public AcDbVertexCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDb3dPolyline);
    AcDb3dPolyline() { m_flags = 8; }
    AcDb3dPolyline(AcDb::Poly3dType type, const AcGePoint3dArray& vertices, Adesk::Boolean closed = Adesk::kFalse);
    AcRxObject* clone() const override { return new AcDb3dPolyline(*this); }

    AcDb::Poly3dType polyType() const;
    Acad::ErrorStatus appendVertex(AcDb3dPolylineVertex* vertex);
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDb3dPolylineVertex* vertex);
    Acad::ErrorStatus openVertex(AcDb3dPolylineVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErased = false) const;
    Adesk::Boolean isPlanar() const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;

protected:
    AcDb3dPolyline(const AcDb3dPolyline&) = default;
    VertexPath path() const override;
};

/// What the two kinds of mesh share: vertices in world coordinates.
class AcDbVertexMesh : public AcDbEntity {
public:
    /// For the caller to delete. Those of a polyface mesh are followed by its face records.
    AcDbObjectIterator* vertexIterator() const;
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;

protected:
    AcDbVertexMesh() = default;
    AcDbVertexMesh(const AcDbVertexMesh&) = default;
    /// Positions of the vertices; face records and, of a smoothed mesh, control points are left out.
    std::vector<AcGePoint3d> positions() const;
    std::vector<AcDbFaceRecord> faces() const;

    Adesk::Int16 m_flags = 0;
    Adesk::Int16 m_rows = 0, m_columns = 0; // of a polyface mesh: how many vertices and faces

private:
    friend struct DxfFieldsOfVertices;
};

/// M × N vertices, N of them a row.
class AcDbPolygonMesh : public AcDbVertexMesh {
public:
    ACRX_DECLARE_MEMBERS(AcDbPolygonMesh);
    AcDbPolygonMesh() { m_flags = 16; }
    AcDbPolygonMesh(AcDb::PolyMeshType type, Adesk::Int16 mSize, Adesk::Int16 nSize, const AcGePoint3dArray& vertices,
                    Adesk::Boolean mClosed = Adesk::kTrue, Adesk::Boolean nClosed = Adesk::kTrue);
    AcRxObject* clone() const override { return new AcDbPolygonMesh(*this); }

    AcDb::PolyMeshType polyMeshType() const { return static_cast<AcDb::PolyMeshType>(m_type); }
    Adesk::Int16 mSize() const { return m_rows; }
    Acad::ErrorStatus setMSize(Adesk::Int16 size);
    Adesk::Int16 nSize() const { return m_columns; }
    Acad::ErrorStatus setNSize(Adesk::Int16 size);
    Adesk::Boolean isMClosed() const { return (m_flags & 1) != 0; }
    Adesk::Boolean isNClosed() const { return (m_flags & 32) != 0; }
    Acad::ErrorStatus appendVertex(AcDbPolygonMeshVertex* vertex);
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDbPolygonMeshVertex* vertex);
    Acad::ErrorStatus openVertex(AcDbPolygonMeshVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErased = false) const;
    /// Into 3D faces.
    Acad::ErrorStatus explode(AcDbVoidPtrArray& entities) const override;

protected:
    AcDbPolygonMesh(const AcDbPolygonMesh&) = default;

private:
    friend struct DxfFieldsOfVertices;
    Adesk::Int16 m_type = 0;
    Adesk::Int16 m_smoothRows = 0, m_smoothColumns = 0; // of the mesh that smoothing made
};

/// Vertices, then faces that name them.
class AcDbPolyFaceMesh : public AcDbVertexMesh {
public:
    ACRX_DECLARE_MEMBERS(AcDbPolyFaceMesh);
    AcDbPolyFaceMesh() { m_flags = 64; }
    AcRxObject* clone() const override { return new AcDbPolyFaceMesh(*this); }

    Adesk::Int16 numVertices() const { return m_rows; }
    Adesk::Int16 numFaces() const { return m_columns; }
    Acad::ErrorStatus appendVertex(AcDbPolyFaceMeshVertex* vertex);
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDbPolyFaceMeshVertex* vertex);
    Acad::ErrorStatus appendFaceRecord(AcDbFaceRecord* face);
    Acad::ErrorStatus appendFaceRecord(AcDbObjectId& id, AcDbFaceRecord* face);
    Acad::ErrorStatus openVertex(AcDbVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErased = false) const;
    /// Into 3D faces.
    Acad::ErrorStatus explode(AcDbVoidPtrArray& entities) const override;

protected:
    AcDbPolyFaceMesh(const AcDbPolyFaceMesh&) = default;
};
