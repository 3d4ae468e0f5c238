#include <cmath>

#include "../db/entities/DrawingWithEntities.h"

#include "SceneTest.h"

namespace {

struct Row {
    const char* name;
    const char* records;
    Lines expected;
};

const Row rows[] = {
    {"line", "0 LINE\n100 AcDbLine\n10 1\n20 2\n30 5\n11 4\n21 6\n31 5\n", {"line 7: 1,2 4,6"}},
    {"closed polyline ends where it begins",
     "0 LWPOLYLINE\n100 AcDbPolyline\n90 3\n70 1\n10 0\n20 0\n10 4\n20 0\n10 4\n20 3\n",
     {"line 7: 0,0 4,0 4,3 0,0"}},
    // Mirrored: the plane of (0,0,-1) has its X axis along -X.
    {"polyline seen from below",
     "0 LWPOLYLINE\n100 AcDbPolyline\n90 2\n70 0\n10 1\n20 2\n10 5\n20 2\n210 0\n220 0\n230 -1\n",
     {"line 7: -1,2 -5,2"}},
    {"wide polyline: a quadrilateral a segment, mitred at the corner",
     "0 LWPOLYLINE\n100 AcDbPolyline\n90 3\n70 0\n43 2\n10 0\n20 0\n10 10\n20 0\n10 10\n20 10\n",
     {"area 7: 0,1 9,1 11,-1 0,-1", "area 7: 9,1 9,10 11,10 11,-1"}},
    {"tapered segment",
     "0 LWPOLYLINE\n100 AcDbPolyline\n90 2\n70 0\n10 0\n20 0\n40 2\n41 0\n10 10\n20 0\n",
     {"area 7: 0,1 10,0 10,0 0,-1"}},
    {"2D polyline takes its own widths where vertices say none",
     "0 POLYLINE\n100 AcDb2dPolyline\n66 1\n40 4\n41 4\n0 VERTEX\n100 AcDbVertex\n100 AcDb2dVertex\n10 0\n20 0\n"
     "0 VERTEX\n100 AcDbVertex\n100 AcDb2dVertex\n10 10\n20 0\n0 SEQEND\n",
     {"area 7: 0,2 10,2 10,-2 0,-2"}},
    {"splined 2D polyline leaves its frame out",
     "0 POLYLINE\n100 AcDb2dPolyline\n66 1\n70 4\n75 6\n"
     "0 VERTEX\n100 AcDbVertex\n100 AcDb2dVertex\n10 0\n20 0\n70 16\n"
     "0 VERTEX\n100 AcDbVertex\n100 AcDb2dVertex\n10 0\n20 0\n70 8\n"
     "0 VERTEX\n100 AcDbVertex\n100 AcDb2dVertex\n10 5\n20 2\n70 8\n0 SEQEND\n",
     {"line 7: 0,0 5,2"}},
    {"3D polyline, closed",
     "0 POLYLINE\n100 AcDb3dPolyline\n66 1\n70 9\n"
     "0 VERTEX\n100 AcDbVertex\n100 AcDb3dPolylineVertex\n10 0\n20 0\n30 1\n70 32\n"
     "0 VERTEX\n100 AcDbVertex\n100 AcDb3dPolylineVertex\n10 5\n20 0\n30 2\n70 32\n"
     "0 VERTEX\n100 AcDbVertex\n100 AcDb3dPolylineVertex\n10 5\n20 5\n30 3\n70 32\n0 SEQEND\n",
     {"line 7: 0,0 5,0 5,5 0,0"}},
    {"3D face: its second edge (bit 2) is invisible",
     "0 3DFACE\n100 AcDbFace\n10 0\n20 0\n11 4\n21 0\n12 4\n22 4\n13 0\n23 4\n70 2\n",
     {"line 7: 0,0 4,0", "line 7: 4,4 0,4 0,0"}},
    {"triangle: its fourth corner is the third",
     "0 3DFACE\n100 AcDbFace\n10 0\n20 0\n11 4\n21 0\n12 4\n22 4\n13 4\n23 4\n",
     {"line 7: 0,0 4,0 4,4 0,0"}},
    {"solid: its outline runs 0, 1, 3, 2",
     "0 SOLID\n100 AcDbTrace\n10 0\n20 0\n11 4\n21 0\n12 0\n22 3\n13 4\n23 3\n",
     {"area 7: 0,0 4,0 4,3 0,3"}},
    {"polyface mesh: the edge behind a negative number is invisible",
     "0 POLYLINE\n100 AcDbPolyFaceMesh\n66 1\n70 64\n71 3\n72 1\n"
     "0 VERTEX\n100 AcDbVertex\n100 AcDbPolyFaceMeshVertex\n10 0\n20 0\n70 192\n"
     "0 VERTEX\n100 AcDbVertex\n100 AcDbPolyFaceMeshVertex\n10 6\n20 0\n70 192\n"
     "0 VERTEX\n100 AcDbVertex\n100 AcDbPolyFaceMeshVertex\n10 6\n20 8\n70 192\n"
     "0 VERTEX\n100 AcDbFaceRecord\n10 0\n20 0\n70 128\n71 1\n72 -2\n73 3\n0 SEQEND\n",
     {"line 7: 0,0 6,0", "line 7: 6,8 0,0"}},
    {"polygon mesh 2 × 2, open",
     "0 POLYLINE\n100 AcDbPolygonMesh\n66 1\n70 16\n71 2\n72 2\n"
     "0 VERTEX\n100 AcDbVertex\n100 AcDbPolygonMeshVertex\n10 0\n20 0\n70 64\n"
     "0 VERTEX\n100 AcDbVertex\n100 AcDbPolygonMeshVertex\n10 0\n20 3\n70 64\n"
     "0 VERTEX\n100 AcDbVertex\n100 AcDbPolygonMeshVertex\n10 4\n20 0\n70 64\n"
     "0 VERTEX\n100 AcDbVertex\n100 AcDbPolygonMeshVertex\n10 4\n20 3\n70 64\n0 SEQEND\n",
     {"line 7: 0,0 0,3 4,3 4,0 0,0"}},
    {"solid hatch with an island",
     "0 HATCH\n100 AcDbHatch\n10 0\n20 0\n30 0\n210 0\n220 0\n230 1\n2 SOLID\n70 1\n71 0\n91 2\n"
     "92 3\n72 0\n73 1\n93 4\n10 0\n20 0\n10 9\n20 0\n10 9\n20 9\n10 0\n20 9\n97 0\n"
     "92 2\n72 0\n73 1\n93 4\n10 3\n20 3\n10 6\n20 3\n10 6\n20 6\n10 3\n20 6\n97 0\n75 0\n76 1\n98 0\n",
     {"area 7: 0,0 9,0 9,9 0,9 | 3,3 6,3 6,6 3,6"}},
    // Lines along X, 3 apart, from y = 1: the one at 4 is parted by the island.
    {"pattern hatch with an island",
     "0 HATCH\n100 AcDbHatch\n10 0\n20 0\n30 0\n210 0\n220 0\n230 1\n2 LIGNES\n70 0\n71 0\n91 2\n"
     "92 3\n72 0\n73 1\n93 4\n10 0\n20 0\n10 9\n20 0\n10 9\n20 9\n10 0\n20 9\n97 0\n"
     "92 2\n72 0\n73 1\n93 4\n10 3\n20 3\n10 6\n20 3\n10 6\n20 6\n10 3\n20 6\n97 0\n75 0\n76 1\n52 0\n41 1\n77 0\n78 "
     "1\n"
     "53 0\n43 0\n44 1\n45 0\n46 3\n79 0\n98 0\n",
     {"line 7: 0,1 9,1", "line 7: 0,4 3,4", "line 7: 6,4 9,4", "line 7: 0,7 9,7"}},
    // A dash of 2, a gap of 1, from x = 1 on.
    {"dashed pattern, counted from its base point",
     "0 HATCH\n100 AcDbHatch\n10 0\n20 0\n30 0\n210 0\n220 0\n230 1\n2 TIRETS\n70 0\n71 0\n91 1\n"
     "92 3\n72 0\n73 1\n93 4\n10 0\n20 0\n10 9\n20 0\n10 9\n20 2\n10 0\n20 2\n97 0\n75 0\n76 1\n52 0\n41 1\n77 0\n78 "
     "1\n"
     "53 0\n43 1\n44 1\n45 0\n46 5\n79 2\n49 2\n49 -1\n98 0\n",
     {"line 7: 1,1 3,1", "line 7: 4,1 6,1", "line 7: 7,1 9,1"}},
    {"text",
     "0 TEXT\n100 AcDbText\n10 1\n20 2\n40 2.5\n1 Borne\n100 AcDbText\n",
     {"text 7: <Borne> at 1,2 along 2.5,0 up 0,2.5"}},
    {"turned text with a width factor",
     "0 TEXT\n100 AcDbText\n10 1\n20 2\n40 2\n1 A\n50 90\n41 0.5\n100 AcDbText\n",
     {"text 7: <A> at 1,2 along 0,1 up -2,0"}},
    // tan 45° = 1: the top leans forward by the height.
    {"slanted text",
     "0 TEXT\n100 AcDbText\n10 0\n20 0\n40 2\n1 A\n51 45\n100 AcDbText\n",
     {"text 7: <A> at 0,0 along 2,0 up 2,2"}},
    {"backwards text",
     "0 TEXT\n100 AcDbText\n10 0\n20 0\n40 2\n1 A\n71 2\n100 AcDbText\n",
     {"text 7: <A> at 0,0 along -2,0 up 0,2"}},
    {"upside-down text",
     "0 TEXT\n100 AcDbText\n10 0\n20 0\n40 2\n1 A\n71 4\n100 AcDbText\n",
     {"text 7: <A> at 0,0 along 2,0 up 0,-2"}},
    {"definition of an attribute in the open shows its tag",
     "0 ATTDEF\n100 AcDbText\n10 0\n20 0\n40 1\n1 valeur\n100 AcDbAttributeDefinition\n3 Question\n2 MAT\n70 0\n",
     {"text 7: <MAT> at 0,0 along 1,0 up 0,1"}},
    {"invisible entity", "0 LINE\n60 1\n100 AcDbLine\n10 1\n20 2\n11 4\n21 6\n", {}},
    {"colour by index and true colour",
     "0 LINE\n62 1\n100 AcDbLine\n10 0\n20 0\n11 1\n21 0\n0 LINE\n62 1\n420 1193046\n100 AcDbLine\n10 0\n20 0\n11 1\n"
     "21 0\n",
     {"line FF0000: 0,0 1,0", "line 123456: 0,0 1,0"}},
};

/// Distance from a circle, the greatest of all points and of the middles of all chords.
double deviation(const std::vector<AcGePoint3d>& points, const AcGePoint3d& center, double radius)
{
    double most = 0.0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const AcGePoint3d middle = i == 0 ? points[0] : points[i - 1] + (points[i] - points[i - 1]) * 0.5;
        for (const AcGePoint3d& p : {points[i], middle})
            most = std::max(most, std::fabs(std::hypot(p.x - center.x, p.y - center.y) - radius));
    }
    return most;
}

} // namespace

TEST(Primitives, eachKindOfEntity)
{
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        DrawingWithEntities drawing(row.records);
        EXPECT_EQ(drawn(Scene::of(drawing.database())), row.expected);
    }
}

TEST(Primitives, arcsFollowTheirCircleWithinHalfAPixel)
{
    // A circle; an arc from 350° to 10°; half a turn by a bulge of 1; a quarter of an ellipse that is a circle.
    struct Curve {
        const char* records;
        AcGePoint3d center, start, end;
        double radius;
    };
    const Curve curves[] = {
        {"0 CIRCLE\n100 AcDbCircle\n10 2\n20 3\n40 5\n", {2, 3, 0}, {7, 3, 0}, {7, 3, 0}, 5.0},
        {"0 ARC\n100 AcDbCircle\n10 0\n20 0\n40 10\n100 AcDbArc\n50 270\n51 90\n",
         {0, 0, 0},
         {0, -10, 0},
         {0, 10, 0},
         10.0},
        {"0 LWPOLYLINE\n100 AcDbPolyline\n90 2\n70 0\n10 0\n20 0\n42 1\n10 4\n20 0\n",
         {2, 0, 0},
         {0, 0, 0},
         {4, 0, 0},
         2.0},
        {"0 ELLIPSE\n100 AcDbEllipse\n10 1\n20 1\n11 3\n21 0\n40 1\n41 0\n42 1.5707963267948966\n",
         {1, 1, 0},
         {4, 1, 0},
         {1, 4, 0},
         3.0},
    };
    for (const Curve& curve : curves) {
        SCOPED_TRACE(curve.records);
        DrawingWithEntities drawing(curve.records);
        for (const double pixel : {0.5, 0.01, 0.001}) {
            SceneView view = wideView();
            view.pixel = pixel;
            RecordingSink sink;
            Scene::of(drawing.database()).draw(view, sink);
            ASSERT_EQ(sink.polylines.size(), 1U);
            const auto& points = sink.polylines.front();
            EXPECT_LE(deviation(points, curve.center, curve.radius), pixel / 2.0 + 1e-9);
            EXPECT_LE(points.size(), 10.0 + 8.0 * std::sqrt(curve.radius / pixel)); // no more than it takes
            EXPECT_NEAR(points.front().distanceTo(curve.start), 0.0, 1e-9);
            EXPECT_NEAR(points.back().distanceTo(curve.end), 0.0, 1e-9);
        }
    }
}

TEST(Primitives, bulgesKeepTheirSide)
{
    // Positive: counter-clockwise, below a chord that runs along X.
    DrawingWithEntities drawing("0 LWPOLYLINE\n100 AcDbPolyline\n90 2\n70 0\n10 0\n20 0\n42 1\n10 4\n20 0\n");
    RecordingSink sink;
    Scene::of(drawing.database()).draw(wideView(), sink);
    double lowest = 0.0;
    for (const AcGePoint3d& point : sink.polylines.at(0))
        lowest = std::min(lowest, point.y);
    EXPECT_NEAR(lowest, -2.0, 0.01);
}

TEST(Primitives, splinesPassWhereTheirFormulaSays)
{
    // A cubic with the knots 0 0 0 0 1 1 1 1 is the Bézier curve of its control points: at one half (2, 1.5).
    DrawingWithEntities drawing("0 SPLINE\n100 AcDbSpline\n70 8\n71 3\n72 8\n73 4\n74 0\n40 0\n40 0\n40 0\n40 0\n40 1\n"
                                "40 1\n40 1\n40 1\n10 0\n20 0\n10 0\n20 2\n10 4\n20 2\n10 4\n20 0\n");
    RecordingSink sink;
    Scene::of(drawing.database()).draw(wideView(), sink);
    ASSERT_EQ(sink.polylines.size(), 1U);
    const auto& points = sink.polylines.front();
    double nearest = 1e9;
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        const AcGeVector3d way = points[i + 1] - points[i];
        const double share =
            std::clamp((AcGePoint3d(2, 1.5, 0) - points[i]).dotProduct(way) / way.lengthSqrd(), 0.0, 1.0);
        nearest = std::min(nearest, (points[i] + way * share).distanceTo(AcGePoint3d(2, 1.5, 0)));
    }
    EXPECT_LE(nearest, 0.001);
    EXPECT_EQ(points.front().distanceTo(AcGePoint3d(0, 0, 0)), 0.0);
    EXPECT_NEAR(points.back().distanceTo(AcGePoint3d(4, 0, 0)), 0.0, 1e-12);
}

TEST_F(SceneTest, pointFigures)
{
    add(new AcDbPoint({0, 0, 0}));
    setVariable("$PDSIZE", 40, 2.0);
    struct Figure {
        int mode;
        Lines expected;
    };
    const Figure figures[] = {
        {0, {"dot 7: 0,0"}},
        {1, {}},
        {2, {"line 7: -2,0 2,0", "line 7: 0,-2 0,2"}},
        {3, {"line 7: -2,-2 2,2", "line 7: -2,2 2,-2"}},
        {4, {"line 7: 0,0 0,1"}},
        {64, {"dot 7: 0,0", "line 7: -1,-1 1,-1 1,1 -1,1 -1,-1"}},
        {66, {"line 7: -2,0 2,0", "line 7: 0,-2 0,2", "line 7: -1,-1 1,-1 1,1 -1,1 -1,-1"}},
    };
    for (const Figure& figure : figures) {
        setVariable("$PDMODE", 70, figure.mode);
        EXPECT_EQ(drawn(scene()), figure.expected) << figure.mode;
    }
    setVariable("$PDSIZE", 40, 0.0); // a twentieth of the view's height: 10
    setVariable("$PDMODE", 70, 4);
    EXPECT_EQ(drawn(scene()), Lines{"line 7: 0,0 0,5"});
    setVariable("$PDSIZE", 40, -2.0); // per cent of it
    EXPECT_EQ(drawn(scene()), Lines{"line 7: 0,0 0,2"});
}
