#include <memory>

#include "dbelipse.h"
#include "dbents.h"
#include "gemat3d.h"
#include "geplane.h"
#include "Near.h"

namespace {

/// A text of height 2.
class Note : public AcDbText {
public:
    Note(const wchar_t* text, AcGePoint3d at) : AcDbText(at, text, AcDbObjectId::kNull, 2.0) {}
};

} // namespace

TEST(Text, extentsFollowAlignmentAndRotation)
{
    struct Row {
        const char* name;
        AcDb::TextHorzMode horizontal;
        AcDb::TextVertMode vertical;
        double rotation;
        AcGePoint3d min, max;
    };
    // "1234" of height 2, placed by (10, 20): four digits of 1303 units, where capitals are 1493 high.
    constexpr double wide = 4 * 2.0 * 1303 / 1493, half = wide / 2, below = 2.0 * 0.32;
    const Row rows[] = {
        {"left", AcDb::kTextLeft, AcDb::kTextBase, 0.0, {10, 20, 0}, {10 + wide, 22, 0}},
        {"right", AcDb::kTextRight, AcDb::kTextBase, 0.0, {10 - wide, 20, 0}, {10, 22, 0}},
        {"right, bottom", AcDb::kTextRight, AcDb::kTextBottom, 0.0, {10 - wide, 20 + below, 0}, {10, 22 + below, 0}},
        {"centre, top", AcDb::kTextCenter, AcDb::kTextTop, 0.0, {10 - half, 18, 0}, {10 + half, 20, 0}},
        {"middle", AcDb::kTextMid, AcDb::kTextBase, 0.0, {10 - half, 19, 0}, {10 + half, 21, 0}},
        {"left, upwards", AcDb::kTextLeft, AcDb::kTextBase, pi / 2, {8, 20, 0}, {10, 20 + wide, 0}},
        {"right, upwards", AcDb::kTextRight, AcDb::kTextBase, pi / 2, {8, 20 - wide, 0}, {10, 20, 0}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Note text(L"1234", {10, 20, 0});
        text.setRotation(row.rotation);
        text.setHorizontalMode(row.horizontal);
        text.setVerticalMode(row.vertical);
        text.setAlignmentPoint({10, 20, 0});
        expectBox(text, row.min, row.max);
        if (row.vertical != AcDb::kTextTop && row.horizontal != AcDb::kTextMid && row.rotation == 0.0)
            expectNear(text.position(), row.min);
    }
    EXPECT_EQ(Note(L"", {0, 0, 0}).getGeomExtents(*std::make_unique<AcDbExtents>()), Acad::eInvalidExtents);
    // Underlined "Ø12"; the diameter sign is 1612 units wide.
    expectBox(Note(L"%%u%%c12%%u", {0, 0, 0}), {0, 0, 0}, {2.0 * (1612 + 2 * 1303) / 1493, 2, 0});
}

TEST(Text, transformations)
{
    Note text(L"AB", {10, 0, 0});
    text.transformBy(AcGeMatrix3d::rotation(pi / 2, AcGeVector3d::kZAxis));
    expectNear(text.position(), {0, 10, 0});
    EXPECT_NEAR(text.rotation(), pi / 2, 1e-12);
    text.transformBy(AcGeMatrix3d::scaling(3.0));
    EXPECT_NEAR(text.height(), 6.0, 1e-12);
    AcGeMatrix3d stretch;
    stretch(1, 1) = 2.0; // along the text, which runs upwards
    EXPECT_EQ(text.transformBy(stretch), Acad::eOk);
    EXPECT_NEAR(text.height(), 6.0, 1e-12);
    EXPECT_NEAR(text.widthFactor(), 2.0, 1e-12);
    Note slanted(L"AB", {0, 0, 0});
    slanted.setRotation(pi / 4);
    EXPECT_EQ(slanted.transformBy(stretch), Acad::eInvalidInput);
}

TEST(Transform, mirroredArcKeepsItsShapeAndItsNormal)
{
    AcDbArc arc({10, 0, 0}, 2.0, 0.0, pi / 2);
    arc.transformBy(AcGeMatrix3d::mirroring(AcGePlane::kYZPlane));
    EXPECT_EQ(arc.normal().z, 1.0);
    expectBox(arc, {-12, 0, 0}, {-10, 2, 0});
    EXPECT_NEAR(arc.totalAngle(), pi / 2, 1e-12);
}

TEST(Transform, thereAndBackIsTheSame)
{
    const AcGeMatrix3d there =
        AcGeMatrix3d::translation({5, 6, 7}) * AcGeMatrix3d::rotation(0.7, {1, 2, -1}) * AcGeMatrix3d::scaling(2.5);
    std::vector<std::unique_ptr<AcDbEntity>> entities;
    entities.push_back(std::make_unique<AcDbPoint>(AcGePoint3d(1, 2, 3)));
    entities.push_back(std::make_unique<AcDbLine>(AcGePoint3d(1, 2, 3), AcGePoint3d(4, 5, 6)));
    entities.push_back(std::make_unique<AcDbArc>(AcGePoint3d(1, 2, 3), AcGeVector3d(0, 1, 1), 4.0, 0.3, 2.0));
    entities.push_back(std::make_unique<AcDbEllipse>(AcGePoint3d(1, 2, 3), AcGeVector3d(0, 0, 1), AcGeVector3d(3, 4, 0),
                                                     0.3, 0.0, 2.0));
    entities.push_back(std::make_unique<AcDbFace>(AcGePoint3d(0, 0, 1), AcGePoint3d(1, 0, 2), AcGePoint3d(1, 1, 3)));
    entities.push_back(std::make_unique<AcDbSolid>(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0), AcGePoint3d(0, 1, 0)));
    entities.push_back(std::make_unique<Note>(L"texte", AcGePoint3d(1, 2, 0)));
    for (const auto& entity : entities) {
        AcDbExtents before, after;
        ASSERT_EQ(entity->getGeomExtents(before), Acad::eOk);
        ASSERT_EQ(entity->transformBy(there), Acad::eOk);
        ASSERT_EQ(entity->transformBy(there.inverse()), Acad::eOk);
        ASSERT_EQ(entity->getGeomExtents(after), Acad::eOk);
        expectNear(after.minPoint(), before.minPoint());
        expectNear(after.maxPoint(), before.maxPoint());
    }
}

TEST(Transform, stretchedCircleIsAnEllipse)
{
    AcGeMatrix3d stretch;
    stretch(1, 1) = 3.0;
    AcDbCircle circle({1, 1, 0}, {0, 0, 1}, 2.0);
    EXPECT_EQ(circle.transformBy(stretch), Acad::eInvalidInput);
    AcDbEntity* copy = nullptr;
    ASSERT_EQ(circle.getTransformedCopy(stretch, copy), Acad::eOk);
    const std::unique_ptr<AcDbEntity> owned(copy);
    ASSERT_TRUE(AcDbEllipse::cast(copy));
    expectBox(*copy, {-1, -3, 0}, {3, 9, 0});
}

TEST(Transform, copyOfAPolylineTakesItsVerticesAlong)
{
    AcGePoint3dArray points;
    points.append({0, 0, 0});
    points.append({1, 2, 3});
    const AcDb3dPolyline polyline(AcDb::k3dSimplePoly, points);
    AcDbEntity* copy = nullptr;
    ASSERT_EQ(polyline.getTransformedCopy(AcGeMatrix3d::translation({10, 0, 0}), copy), Acad::eOk);
    const std::unique_ptr<AcDbEntity> owned(copy);
    expectBox(*copy, {10, 0, 0}, {11, 2, 3});
    expectBox(polyline, {0, 0, 0}, {1, 2, 3});
}

TEST(Faces, trianglesAndHiddenEdges)
{
    AcDbFace face({0, 0, 0}, {1, 0, 0}, {0, 1, 5});
    AcGePoint3d corner;
    ASSERT_EQ(face.getVertexAt(3, corner), Acad::eOk);
    expectNear(corner, {0, 1, 5});
    EXPECT_EQ(face.getVertexAt(4, corner), Acad::eInvalidIndex);
    face.makeEdgeInvisibleAt(1);
    AcDbVoidPtrArray edges;
    face.explode(edges);
    EXPECT_EQ(edges.length(), 2);
    for (void* edge : edges)
        delete static_cast<AcDbEntity*>(edge);
}

TEST(Meshes, explodeIntoFaces)
{
    AcDbPolyFaceMesh mesh;
    for (const AcGePoint3d& point :
         {AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0), AcGePoint3d(1, 1, 2), AcGePoint3d(0, 1, 0)})
        mesh.appendVertex(new AcDbPolyFaceMeshVertex(point));
    mesh.appendFaceRecord(new AcDbFaceRecord(1, 2, 3, -4));
    mesh.appendFaceRecord(new AcDbFaceRecord(1, 2, 4, 0));
    mesh.appendFaceRecord(new AcDbFaceRecord(1, 2, 99, 0)); // names a vertex that is not there
    EXPECT_EQ(mesh.numVertices(), 4);
    EXPECT_EQ(mesh.numFaces(), 3);
    expectBox(mesh, {0, 0, 0}, {1, 1, 2});
    AcDbVoidPtrArray faces;
    mesh.explode(faces);
    ASSERT_EQ(faces.length(), 2);
    Adesk::Boolean visible = Adesk::kTrue;
    static_cast<AcDbFace*>(static_cast<AcDbEntity*>(faces[0]))->isEdgeVisibleAt(3, visible);
    EXPECT_FALSE(visible);
    for (void* face : faces)
        delete static_cast<AcDbEntity*>(face);

    AcGePoint3dArray grid;
    for (int i = 0; i < 6; ++i)
        grid.append(AcGePoint3d(i / 3, i % 3, 0));
    const AcDbPolygonMesh open(AcDb::kSimpleMesh, 2, 3, grid, Adesk::kFalse, Adesk::kFalse);
    const AcDbPolygonMesh ring(AcDb::kSimpleMesh, 2, 3, grid, Adesk::kFalse, Adesk::kTrue);
    const AcDbPolygonMesh wrong(AcDb::kSimpleMesh, 30000, 30000, grid);
    faces.removeAll();
    open.explode(faces);
    EXPECT_EQ(faces.length(), 2);
    ring.explode(faces);
    EXPECT_EQ(faces.length(), 5);
    EXPECT_EQ(wrong.explode(faces), Acad::eDegenerateGeometry);
    for (void* face : faces)
        delete static_cast<AcDbEntity*>(face);
}
