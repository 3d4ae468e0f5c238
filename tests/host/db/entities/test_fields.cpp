#include <functional>
#include <memory>

#include "dbdim.h"
#include "dbelipse.h"
#include "dbents.h"
#include "dbhatch.h"
#include "dbmtext.h"
#include "dbproxy.h"
#include "dbspline.h"
#include "DrawingWithEntities.h"
#include "gemat3d.h"
#include "Near.h"

namespace {

struct Row {
    const char* name;
    const char* className;
    std::string record; ///< from its group 0, one tag a line
    std::function<void(AcDbEntity&)> change;
    std::string changed; ///< what the change makes of the tags after the common ones
};

template <class T>
T& as(AcDbEntity& entity)
{
    return static_cast<T&>(entity);
}

/// Tags that no class models (1070 aside) stand among the modelled ones, to be found again in their places.
const std::vector<Row>& rows()
{
    static const std::vector<Row> list = {
        {"point", "AcDbPoint", "0 POINT\n100 AcDbPoint\n10 1.50\n20 2.25\n30 3.0\n",
         [](AcDbEntity& e) {
             as<AcDbPoint>(e).setPosition({1.5, 7.0, 3.0});
         },
         "100 AcDbPoint\n10 1.50\n20 7.0\n30 3.0\n"},
        {"line", "AcDbLine", "0 LINE\n100 AcDbLine\n10 1\n20 2\n30 3\n11 4\n21 5\n31 6\n",
         [](AcDbEntity& e) {
             as<AcDbLine>(e).setEndPoint({4, 5, 60.25});
         },
         "100 AcDbLine\n10 1\n20 2\n30 3\n11 4\n21 5\n31 60.25\n"},
        {"arc", "AcDbArc",
         "0 ARC\n100 AcDbCircle\n10 0.0\n20 0.0\n30 0.0\n40 5.0\n210 0.0\n220 0.0\n230 -1.0\n100 AcDbArc\n50 30.0\n51 "
         "90.0\n",
         [](AcDbEntity& e) {
             EXPECT_NEAR(as<AcDbArc>(e).endAngle(), pi / 2, 1e-15);
             as<AcDbArc>(e).setRadius(6.5);
             as<AcDbArc>(e).setCenter({3, 0, 0}); // X of a plane seen from below runs the other way
         },
         "100 AcDbCircle\n10 -3.0\n20 0.0\n30 0.0\n40 6.5\n210 0.0\n220 0.0\n230 -1.0\n100 AcDbArc\n50 30.0\n51 "
         "90.0\n"},
        {"ellipse", "AcDbEllipse",
         "0 ELLIPSE\n100 AcDbEllipse\n10 0.0\n20 0.0\n30 0.0\n11 2.0\n21 0.0\n31 0.0\n40 0.50\n41 0.0\n42 1.25\n",
         [](AcDbEntity& e) {
             as<AcDbEllipse>(e).setCenter({0, 0, 9});
         },
         "100 AcDbEllipse\n10 0.0\n20 0.0\n30 9.0\n11 2.0\n21 0.0\n31 0.0\n40 0.50\n41 0.0\n42 1.25\n"},
        {"lightweight polyline: another vertex", "AcDbPolyline",
         "0 LWPOLYLINE\n100 AcDbPolyline\n90 2\n70 1\n43 0.0\n38 12.50\n10 0.0\n20 1.0\n42 0.5\n91 7\n10 5.0\n20 6.0\n",
         [](AcDbEntity& e) {
             as<AcDbPolyline>(e).addVertexAt(2, {8, 9});
         },
         "100 AcDbPolyline\n90 3\n70 1\n43 0.0\n38 12.50\n10 0.0\n20 1.0\n42 0.5\n91 7\n10 5.0\n20 6.0\n10 8.0\n20 "
         "9.0\n"},
        {"lightweight polyline: the count lies", "AcDbPolyline",
         "0 LWPOLYLINE\n100 AcDbPolyline\n90 2000000000\n70 0\n10 0.0\n20 1.0\n10 5.0\n20 6.0\n",
         [](AcDbEntity& e) {
             EXPECT_EQ(as<AcDbPolyline>(e).numVerts(), 2U);
             as<AcDbPolyline>(e).setElevation(3.5);
         },
         "100 AcDbPolyline\n90 2000000000\n70 0\n10 0.0\n20 1.0\n10 5.0\n20 6.0\n38 3.5\n"},
        {"text: right-aligned at the origin", "AcDbText",
         "0 TEXT\n100 AcDbText\n10 5.0\n20 0.0\n30 0.0\n40 2.5\n1 12.50\n290 1\n100 AcDbText\n",
         [](AcDbEntity& e) {
             as<AcDbText>(e).setHorizontalMode(AcDb::kTextRight);
             as<AcDbText>(e).setVerticalMode(AcDb::kTextBottom);
         },
         "100 AcDbText\n10 5.0\n20 0.0\n30 0.0\n40 2.5\n1 12.50\n290 1\n72 2\n11 0.0\n21 0.0\n31 0.0\n100 AcDbText\n73 "
         "1\n"},
        {"attribute", "AcDbAttribute",
         "0 ATTRIB\n100 AcDbText\n10 5.0\n20 0.0\n30 0.0\n40 1.0\n1 ancien\n100 AcDbAttribute\n280 0\n2 NUMPT\n70 "
         "0\n280 1\n",
         [](AcDbEntity& e) {
             EXPECT_STREQ(as<AcDbAttribute>(e).tagConst(), L"NUMPT");
             as<AcDbAttribute>(e).setTextString(L"é");
             as<AcDbAttribute>(e).setInvisible(Adesk::kTrue);
         },
         "100 AcDbText\n10 5.0\n20 0.0\n30 0.0\n40 1.0\n1 \xC3\xA9\n100 AcDbAttribute\n280 0\n2 NUMPT\n70 1\n280 1\n"},
        {"attribute with an embedded object, which has codes of its own", "AcDbAttribute",
         "0 ATTRIB\n100 AcDbText\n10 5.0\n20 0.0\n30 0.0\n40 1.0\n1 ancien\n100 AcDbAttribute\n280 0\n2 NUMPT\n70 "
         "8\n101 Embedded Object\n70 1\n10 9.0\n20 9.0\n30 9.0\n1 dedans\n",
         [](AcDbEntity& e) {
             EXPECT_EQ(as<AcDbAttribute>(e).position().x, 5.0);
             as<AcDbAttribute>(e).setTextString(L"neuf");
         },
         "100 AcDbText\n10 5.0\n20 0.0\n30 0.0\n40 1.0\n1 neuf\n100 AcDbAttribute\n280 0\n2 NUMPT\n70 8\n"
         "101 Embedded Object\n70 1\n10 9.0\n20 9.0\n30 9.0\n1 dedans\n"},
        {"definition of an attribute", "AcDbAttributeDefinition",
         "0 ATTDEF\n100 AcDbText\n10 5.0\n20 0.0\n30 0.0\n40 1.0\n1 x\n100 AcDbAttributeDefinition\n3 question\n2 "
         "Z\n70 "
         "8\n",
         [](AcDbEntity& e) { as<AcDbAttributeDefinition>(e).setPrompt(L"Altitude"); },
         "100 AcDbText\n10 5.0\n20 0.0\n30 0.0\n40 1.0\n1 x\n100 AcDbAttributeDefinition\n3 Altitude\n2 Z\n70 8\n"},
        {"face", "AcDbFace",
         "0 3DFACE\n100 AcDbFace\n10 0.0\n20 0.0\n30 0.0\n11 1.0\n21 0.0\n31 0.0\n12 1.0\n22 1.0\n32 1.0\n13 0.0\n23 "
         "1.0\n33 0.0\n",
         [](AcDbEntity& e) { as<AcDbFace>(e).makeEdgeInvisibleAt(2); },
         "100 AcDbFace\n10 0.0\n20 0.0\n30 0.0\n11 1.0\n21 0.0\n31 0.0\n12 1.0\n22 1.0\n32 1.0\n13 0.0\n23 1.0\n33 "
         "0.0\n70 4\n"},
        {"solid", "AcDbSolid",
         "0 SOLID\n100 AcDbTrace\n10 0\n20 0\n30 0\n11 1\n21 0\n31 0\n12 0\n22 1\n32 0\n13 1\n23 1\n33 0\n",
         [](AcDbEntity& e) { as<AcDbSolid>(e).setThickness(2.0); },
         "100 AcDbTrace\n10 0\n20 0\n30 0\n11 1\n21 0\n31 0\n12 0\n22 1\n32 0\n13 1\n23 1\n33 0\n39 2.0\n"},
        {"spline", "AcDbSpline",
         "0 SPLINE\n100 AcDbSpline\n70 8\n71 1\n72 4\n73 2\n74 0\n42 1e-7\n43 1e-7\n40 0\n40 0\n40 1\n40 1\n10 0\n20 "
         "0\n30 0\n10 3\n20 4\n30 0\n",
         [](AcDbEntity& e) {
             AcGePoint3d middle;
             as<AcDbSpline>(e).getPointAtParam(0.5, middle);
             expectNear(middle, {1.5, 2, 0});
             as<AcDbSpline>(e).setControlPointAt(1, {3, 4, 12});
         },
         "100 AcDbSpline\n70 8\n71 1\n72 4\n73 2\n74 0\n42 1e-7\n43 1e-7\n40 0\n40 0\n40 1\n40 1\n10 0.0\n20 0.0\n30 "
         "0.0\n10 3.0\n20 4.0\n30 12.0\n"},
        {"paragraph in chunks", "AcDbMText",
         "0 MTEXT\n100 AcDbMText\n10 0\n20 0\n30 0\n40 2\n41 0\n46 0.0\n71 1\n72 5\n3 alti\n3 tude \\U+00\n1 C9 "
         "1\n73 1\n44 1.0\n",
         [](AcDbEntity& e) {
             as<AcDbMText>(e).setLocation({1, 0, 0});
         },
         "100 AcDbMText\n10 1.0\n20 0\n30 0\n40 2\n41 0\n46 0.0\n71 1\n72 5\n3 alti\n3 tude \\U+00\n1 C9 1\n73 1\n44 "
         "1.0\n"},
        {"dimension", "AcDbRotatedDimension",
         "0 DIMENSION\n100 AcDbDimension\n10 0\n20 5\n30 0\n11 5\n21 5\n31 0\n70 32\n71 5\n42 10.0\n3 Standard\n100 "
         "AcDbAlignedDimension\n13 0\n23 0\n33 0\n14 10\n24 0\n34 0\n50 90.0\n100 AcDbRotatedDimension\n",
         [](AcDbEntity& e) {
             EXPECT_NEAR(as<AcDbRotatedDimension>(e).rotation(), pi / 2, 1e-15);
             EXPECT_EQ(as<AcDbRotatedDimension>(e).measurement(), 10.0);
             as<AcDbDimension>(e).setDimensionText(L"dix");
         },
         "100 AcDbDimension\n10 0\n20 5\n30 0\n11 5\n21 5\n31 0\n70 32\n71 5\n42 10.0\n3 Standard\n1 dix\n100 "
         "AcDbAlignedDimension\n13 0\n23 0\n33 0\n14 10\n24 0\n34 0\n50 90.0\n100 AcDbRotatedDimension\n"},
        {"unknown class", "AcDbProxyEntity", "0 ACME_BORNE\n100 AcmeBorne\n10 1\n1 x\n",
         [](AcDbEntity& e) { e.setLinetypeScale(2.0); }, "100 AcmeBorne\n10 1\n1 x\n"},
    };
    return list;
}

} // namespace

TEST(EntityFields, changedOnesGoToTheirOldPlaces)
{
    for (const Row& row : rows()) {
        SCOPED_TRACE(row.name);
        DrawingWithEntities drawing(row.record);
        {
            const auto entity = drawing.open<AcDbEntity>(0);
            ASSERT_TRUE(entity.object());
            EXPECT_STREQ(entity->isA()->name(),
                         std::wstring(row.className, row.className + strlen(row.className)).c_str());
            row.change(*entity.object());
        }
        EXPECT_EQ(drawing.written(0), row.changed);
    }
}

TEST(EntityFields, commonOnes)
{
    DrawingWithEntities drawing("0 POINT\n62 3\n370 25\n48 2.5\n60 1\n420 16711680\n100 AcDbPoint\n10 0\n20 0\n30 0\n");
    const auto point = drawing.open<AcDbPoint>(0);
    EXPECT_EQ(point->colorIndex(), 3);
    EXPECT_EQ(point->lineWeight(), AcDb::kLnWt025);
    EXPECT_EQ(point->linetypeScale(), 2.5);
    EXPECT_EQ(point->visibility(), AcDb::kInvisible);
    EXPECT_EQ(point->trueColor(), 0xFF0000);
    EXPECT_EQ(point->layerId(), drawing.database().layerZero());
    EXPECT_EQ(point->linetypeId(), drawing.database().byLayerLinetype());
    EXPECT_EQ(point->setLayer(L"absent"), Acad::eKeyNotFound);
    EXPECT_EQ(point->setColorIndex(300), Acad::eInvalidInput);
    EXPECT_EQ(point->setColorIndex(1), Acad::eOk);
    EXPECT_EQ(point->trueColor(), -1);
}

TEST(EntityFields, hatchKeepsAllItsGroups)
{
    const std::string before =
        "100 AcDbHatch\n10 0.0\n20 0.0\n30 4.0\n210 0.0\n220 0.0\n230 1.0\n2 ANSI31\n70 0\n71 0\n91 2\n";
    const std::string after =
        "75 1\n76 1\n52 0.0\n41 1.0\n77 0\n78 1\n53 45.0\n43 0.0\n44 0.0\n45 -0.5\n46 0.5\n79 0\n98 1\n";
    const std::string record = before +
                               "92 2\n72 1\n73 1\n93 2\n10 0.0\n20 0.0\n42 1.0\n10 10.0\n20 0.0\n42 1.0\n97 0\n"
                               "92 1\n93 3\n72 1\n10 20.0\n20 0.0\n11 30.0\n21 0.0\n72 2\n10 30.0\n20 5.0\n40 5.0\n50 "
                               "270.0\n51 90.0\n73 1\n72 1\n10 30.0\n20 10.0\n11 20.0\n21 0.0\n97 0\n" +
                               after + "10 5.0\n20 1.0\n";
    DrawingWithEntities drawing("0 HATCH\n" + record);
    const auto hatch = drawing.open<AcDbHatch>(0);
    ASSERT_TRUE(hatch.object());
    EXPECT_STREQ(hatch->patternName(), L"ANSI31");
    EXPECT_FALSE(hatch->isSolidFill());
    EXPECT_EQ(hatch->elevation(), 4.0);
    ASSERT_EQ(hatch->numLoops(), 2);
    expectBox(*hatch.object(), {0, -5, 4}, {35, 10, 4}); // the first outline is a disc
    ASSERT_EQ(hatch->transformBy(AcGeMatrix3d::translation({100, 0, 1})), Acad::eOk);
    expectBox(*hatch.object(), {100, -5, 5}, {135, 10, 5});
    const std::string moved = drawing.written(0);
    EXPECT_NE(moved.find("10 0.0\n20 0.0\n30 5.0\n"), std::string::npos) << moved;
    EXPECT_NE(moved.find("10 130.0\n20 5.0\n40 5.0\n50 270.0\n51 450.0\n73 1\n"), std::string::npos) << moved;
    EXPECT_NE(moved.find("98 1\n10 105.0\n20 1.0\n"), std::string::npos) << moved;
    EXPECT_EQ(std::count(moved.begin(), moved.end(), '\n'), std::count(record.begin(), record.end(), '\n'));
}

TEST(EntityFields, hatchTurnedAndMirroredKeepsItsOutline)
{
    DrawingWithEntities drawing(
        "0 HATCH\n100 AcDbHatch\n10 0\n20 0\n30 0\n210 0\n220 0\n230 1\n2 SOLID\n70 1\n71 0\n91 1\n92 1\n93 2\n"
        "72 2\n10 0\n20 0\n40 5\n50 0\n51 90\n73 1\n72 1\n10 0\n20 5\n11 5\n21 0\n97 0\n75 0\n76 1\n98 0\n");
    const auto hatch = drawing.open<AcDbHatch>(0);
    ASSERT_TRUE(hatch.object());
    expectBox(*hatch.object(), {0, 0, 0}, {5, 5, 0});
    hatch->transformBy(AcGeMatrix3d::rotation(pi / 2, AcGeVector3d::kZAxis));
    expectBox(*hatch.object(), {-5, 0, 0}, {0, 5, 0});
    AcGeMatrix3d mirror;
    mirror(0, 0) = -1.0;
    hatch->transformBy(mirror);
    expectBox(*hatch.object(), {0, 0, 0}, {5, 5, 0});
}

TEST(EntityFields, hatchStretchedHasEllipticArcs)
{
    for (const double sense : {1.0, -1.0}) {
        // A disc by bulges; a half disc by an arc and a line; an ellipse, the clockwise way.
        DrawingWithEntities drawing(
            "0 HATCH\n100 AcDbHatch\n10 0\n20 0\n30 4\n210 0\n220 0\n230 1\n2 ANSI31\n70 0\n71 0\n91 3\n"
            "92 3\n72 1\n73 1\n93 2\n10 -5\n20 0\n42 1\n10 5\n20 0\n42 1\n97 0\n"
            "92 1\n93 2\n72 2\n10 0\n20 0\n40 5\n50 0\n51 180\n73 1\n72 1\n10 -5\n20 0\n11 5\n21 0\n97 0\n"
            "92 1\n93 1\n72 3\n10 0\n20 0\n11 0\n21 5\n40 1\n50 0\n51 360\n73 0\n97 0\n"
            "75 1\n76 1\n52 0\n41 1\n77 0\n78 1\n53 45\n43 -5\n44 0\n45 -0.5\n46 0.5\n79 0\n98 1\n10 5\n20 0\n");
        const auto hatch = drawing.open<AcDbHatch>(0);
        ASSERT_TRUE(hatch.object());
        AcGeMatrix3d matrix;
        matrix.setCoordSystem({100.0, 10.0, 0.0}, {2.0, 0.0, 0.0}, {0.5 * sense, sense, 0.0}, AcGeVector3d::kZAxis);
        ASSERT_EQ(hatch->transformBy(matrix), Acad::eOk);
        EXPECT_EQ(hatch->elevation(), 4.0);
        ASSERT_EQ(hatch->numLoops(), 3);
        const AcGeMatrix3d back = matrix.inverse();
        for (int loop = 0; loop < 3; ++loop) {
            Adesk::Int32 type = 0;
            AcGePoint2dArray vertices;
            AcGeDoubleArray bulges;
            ASSERT_EQ(hatch->getLoopAt(loop, type, vertices, bulges), Acad::eOk);
            EXPECT_EQ(type, 1);
            double area = 0.0;
            for (int i = 0; i < vertices.length(); ++i) {
                const AcGePoint2d &p = vertices[i], &q = vertices[(i + 1) % vertices.length()];
                area += (p.x * q.y - p.y * q.x) / 2.0;
                const AcGePoint3d was = back * AcGePoint3d(p.x, p.y, 0.0);
                EXPECT_NEAR(std::hypot(was.x, was.y), 5.0, 1e-9) << loop << ' ' << i;
            }
            // 72 chords a turn: a little less than the whole, in the sense that it had.
            const double whole = pi * 25.0 * 2.0 * (loop == 1 ? 0.5 : 1.0) * (loop == 2 ? -1.0 : 1.0) * sense;
            EXPECT_NEAR(area, whole, 0.01 * std::fabs(whole)) << loop;
        }
        // The closest similarity, which agrees with it at the first corner, where the pattern began.
        double angle = 0.0, x = 0.0, y = 0.0, dx = 0.0, dy = 0.0;
        AcGeDoubleArray dashes;
        ASSERT_EQ(hatch->getPatternDefinitionAt(0, angle, x, y, dx, dy, dashes), Acad::eOk);
        const AcGePoint3d corner = matrix * AcGePoint3d(-5.0, 0.0, 0.0);
        EXPECT_NEAR(x, corner.x, 1e-9);
        EXPECT_NEAR(y, corner.y, 1e-9);
        EXPECT_NEAR(std::hypot(dx, dy), std::sqrt(0.5) * std::hypot(1.5, 0.25), 1e-9);
        const double turned = std::atan2(-0.25, 1.5);
        EXPECT_NEAR(std::sin(angle - turned - sense * pi / 4.0), 0.0, 1e-9);
        const std::string written = drawing.written(0);
        EXPECT_NE(written.find("98 1\n10 110.0\n20 10.0\n"), std::string::npos) << written;
    }
}

TEST(EntityFields, verticesAreToldApartByTheirMarkers)
{
    DrawingWithEntities drawing("0 POLYLINE\n100 AcDb3dPolyline\n66 1\n10 0\n20 0\n30 0\n70 9\n"
                                "0 VERTEX\n100 AcDbVertex\n100 AcDb3dPolylineVertex\n10 0\n20 0\n30 0\n70 32\n"
                                "0 VERTEX\n100 AcDbVertex\n100 AcDb3dPolylineVertex\n10 3\n20 4\n30 0\n70 32\n"
                                "0 SEQEND\n"
                                "0 POLYLINE\n100 AcDbPolyFaceMesh\n66 1\n10 0\n20 0\n30 0\n70 64\n71 3\n72 1\n"
                                "0 VERTEX\n100 AcDbVertex\n100 AcDbPolyFaceMeshVertex\n10 0\n20 0\n30 0\n70 192\n"
                                "0 VERTEX\n100 AcDbVertex\n100 AcDbPolyFaceMeshVertex\n10 1\n20 0\n30 0\n70 192\n"
                                "0 VERTEX\n100 AcDbVertex\n100 AcDbPolyFaceMeshVertex\n10 0\n20 1\n30 7\n70 192\n"
                                "0 VERTEX\n100 AcDbFaceRecord\n10 0\n20 0\n30 0\n70 128\n71 1\n72 -2\n73 3\n"
                                "0 SEQEND\n");
    double end = 0.0, length = 0.0;
    {
        const auto polyline = drawing.open<AcDb3dPolyline>(0);
        ASSERT_TRUE(polyline.object());
        ASSERT_EQ(polyline->getEndParam(end), Acad::eOk);
        polyline->getDistAtParam(end, length);
        EXPECT_EQ(length, 10.0); // closed: there and back
        polyline->transformBy(AcGeMatrix3d::translation({0, 0, 2}));
        expectBox(*polyline.object(), {0, 0, 2}, {3, 4, 2});
    }
    const auto mesh = drawing.open<AcDbPolyFaceMesh>(4);
    ASSERT_TRUE(mesh.object());
    expectBox(*mesh.object(), {0, 0, 0}, {1, 1, 7});
    AcDbVoidPtrArray faces;
    mesh->explode(faces);
    ASSERT_EQ(faces.length(), 1);
    const std::unique_ptr<AcDbFace> face(static_cast<AcDbFace*>(static_cast<AcDbEntity*>(faces[0])));
    Adesk::Boolean visible = Adesk::kTrue;
    face->isEdgeVisibleAt(1, visible);
    EXPECT_FALSE(visible);
    EXPECT_EQ(drawing.written(1), "100 AcDbVertex\n100 AcDb3dPolylineVertex\n10 0\n20 0\n30 2.0\n70 32\n");
}
