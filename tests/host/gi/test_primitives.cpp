#include <cmath>
#include <fstream>

#include "DrawingWithEntities.h"
#include "SceneTest.h"

namespace {

struct Row {
    std::string name, records;
    Lines expected;
};

/// Those of primitives.txt.
std::vector<Row> rows()
{
    std::vector<Row> all;
    std::ifstream file(VELA_SOURCE_DIR "/tests/host/gi/primitives.txt");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("entity "))
            all.push_back({line.substr(7), {}, {}});
        else if (line.starts_with("=> "))
            all.back().expected.push_back(line.substr(3));
        else if (!line.empty() && !line.starts_with('#'))
            all.back().records += line + "\n";
    }
    EXPECT_GT(all.size(), 20U);
    return all;
}

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
    for (const Row& row : rows()) {
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
