#include "db/fields/EntityFields.h"

#include "dbentvrt.h"

void DxfFieldsOfVertices::add(DxfClasses& classes)
{
    addEntityClass<AcDbSequenceEnd>(classes, "SEQEND", {});

    const auto place = [] {
        return std::vector<DxfField>{pointField<&AcDbVertex::m_position>(10, DxfWhen::always),
                                     integerField<&AcDbVertex::m_flags>(70, DxfWhen::always)};
    };
    static const DxfSubclass vertex("AcDbVertex", {});
    static const DxfSubclass flat(
        "AcDb2dVertex",
        {pointField<&AcDbVertex::m_position>(10, DxfWhen::always), realField<&AcDb2dVertex::m_startWidth>(40),
         realField<&AcDb2dVertex::m_endWidth>(41), realField<&AcDb2dVertex::m_bulge>(42),
         integerField<&AcDbVertex::m_flags>(70, DxfWhen::always), degreesField<&AcDb2dVertex::m_tangent>(50)});
    static const DxfSubclass spatial("AcDb3dPolylineVertex", place());
    static const DxfSubclass ofMesh("AcDbPolygonMeshVertex", place());
    static const DxfSubclass ofFaces("AcDbPolyFaceMeshVertex", place());
    static const DxfSubclass face(
        "AcDbFaceRecord", {pointField<&AcDbVertex::m_position>(10, DxfWhen::always),
                           integerField<&AcDbVertex::m_flags>(70, DxfWhen::always),
                           integerField<&AcDbFaceRecord::m_corner0>(71), integerField<&AcDbFaceRecord::m_corner1>(72),
                           integerField<&AcDbFaceRecord::m_corner2>(73), integerField<&AcDbFaceRecord::m_corner3>(74)});
    addEntityClass<AcDb2dVertex>(classes, "VERTEX", {&vertex, &flat}, "AcDb2dVertex");
    addEntityClass<AcDb3dPolylineVertex>(classes, "VERTEX", {&vertex, &spatial}, "AcDb3dPolylineVertex");
    addEntityClass<AcDbPolygonMeshVertex>(classes, "VERTEX", {&vertex, &ofMesh}, "AcDbPolygonMeshVertex");
    addEntityClass<AcDbPolyFaceMeshVertex>(classes, "VERTEX", {&vertex, &ofFaces}, "AcDbPolyFaceMeshVertex");
    addEntityClass<AcDbFaceRecord>(classes, "VERTEX", {&face}, "AcDbFaceRecord");

    static const DxfSubclass flatPolyline(
        "AcDb2dPolyline",
        {pointField<&AcDb2dPolyline::m_elevation>(10, DxfWhen::always), realField<&AcDb2dPolyline::m_thickness>(39),
         integerField<&AcDbVertexCurve::m_flags>(70, DxfWhen::always), realField<&AcDb2dPolyline::m_startWidth>(40),
         realField<&AcDb2dPolyline::m_endWidth>(41), integerField<&AcDbVertexCurve::m_type>(75),
         pointField<&AcDb2dPolyline::m_normal>(210)});
    static const DxfSubclass spatialPolyline(
        "AcDb3dPolyline",
        {integerField<&AcDbVertexCurve::m_flags>(70, DxfWhen::always), integerField<&AcDbVertexCurve::m_type>(75)});
    static const DxfSubclass mesh(
        "AcDbPolygonMesh",
        {integerField<&AcDbVertexMesh::m_flags>(70, DxfWhen::always), integerField<&AcDbVertexMesh::m_rows>(71),
         integerField<&AcDbVertexMesh::m_columns>(72), integerField<&AcDbPolygonMesh::m_smoothRows>(73),
         integerField<&AcDbPolygonMesh::m_smoothColumns>(74), integerField<&AcDbPolygonMesh::m_type>(75)});
    static const DxfSubclass faces("AcDbPolyFaceMesh", {integerField<&AcDbVertexMesh::m_flags>(70, DxfWhen::always),
                                                        integerField<&AcDbVertexMesh::m_rows>(71),
                                                        integerField<&AcDbVertexMesh::m_columns>(72)});
    addEntityClass<AcDb2dPolyline>(classes, "POLYLINE", {&flatPolyline}, "AcDb2dPolyline");
    addEntityClass<AcDb3dPolyline>(classes, "POLYLINE", {&spatialPolyline}, "AcDb3dPolyline");
    addEntityClass<AcDbPolygonMesh>(classes, "POLYLINE", {&mesh}, "AcDbPolygonMesh");
    addEntityClass<AcDbPolyFaceMesh>(classes, "POLYLINE", {&faces}, "AcDbPolyFaceMesh");
}
