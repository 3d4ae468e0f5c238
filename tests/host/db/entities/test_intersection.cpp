#include <memory>
#include <vector>

#include "dbelipse.h"
#include "dbents.h"
#include "geplane.h"
#include "Near.h"

namespace {

std::unique_ptr<AcDbCurve> line(AcGePoint3d a, AcGePoint3d b)
{
    return std::make_unique<AcDbLine>(a, b);
}
std::unique_ptr<AcDbCurve> circle(AcGePoint3d center, double radius)
{
    return std::make_unique<AcDbCircle>(center, AcGeVector3d(0, 0, 1), radius);
}
std::unique_ptr<AcDbCurve> arc(AcGePoint3d center, double radius, double from, double to)
{
    return std::make_unique<AcDbArc>(center, radius, from, to);
}
std::unique_ptr<AcDbCurve> outline(std::initializer_list<AcGePoint2d> points, bool closed = true, double bulge = 0.0)
{
    auto polyline = std::make_unique<AcDbPolyline>();
    for (const AcGePoint2d& point : points)
        polyline->addVertexAt(polyline->numVerts(), point, bulge);
    polyline->setClosed(closed);
    return polyline;
}

struct Row {
    const char* name;
    std::unique_ptr<AcDbCurve> first, second;
    AcDb::Intersect type;
    std::vector<AcGePoint3d> expected; ///< in this order
};

std::vector<Row> rows()
{
    constexpr auto both = AcDb::kOnBothOperands;
    const auto square = [] { return outline({{0, 0}, {250, 0}, {250, 250}, {0, 250}}); };
    const auto lShape = [] {
        return outline({{0, 0}, {30, 0}, {30, 30}, {20, 30}, {20, 10}, {10, 10}, {10, 30}, {0, 30}});
    };
    std::vector<Row> list;
    const auto add = [&](const char* name, std::unique_ptr<AcDbCurve> a, std::unique_ptr<AcDbCurve> b,
                         AcDb::Intersect type, std::vector<AcGePoint3d> expected) {
        list.push_back({name, std::move(a), std::move(b), type, std::move(expected)});
    };
    add("crossing lines", line({0, 0, 0}, {10, 10, 0}), line({0, 10, 0}, {10, 0, 0}), both, {{5, 5, 0}});
    add("lines that stop short", line({0, 0, 0}, {4, 4, 0}), line({0, 10, 0}, {10, 0, 0}), both, {});
    add("the same, this one extended", line({0, 0, 0}, {4, 4, 0}), line({0, 10, 0}, {10, 0, 0}), AcDb::kExtendThis,
        {{5, 5, 0}});
    add("the same, the other extended", line({0, 0, 0}, {4, 4, 0}), line({0, 10, 0}, {10, 0, 0}), AcDb::kExtendArg, {});
    add("both extended", line({0, 0, 0}, {1, 1, 0}), line({0, 10, 0}, {1, 9, 0}), AcDb::kExtendBoth, {{5, 5, 0}});
    add("touching at an end", line({0, 0, 0}, {5, 5, 0}), line({5, 5, 0}, {9, 0, 0}), both, {{5, 5, 0}});
    add("in line, sharing an end", line({0, 0, 0}, {5, 0, 0}), line({5, 0, 0}, {9, 0, 0}), both, {{5, 0, 0}});
    add("lying on each other", line({0, 0, 0}, {5, 0, 0}), line({3, 0, 0}, {9, 0, 0}), both, {});
    add("lying on each other from one end", line({0, 0, 0}, {5, 0, 0}), line({0, 0, 0}, {9, 0, 0}), both, {});
    add("passing one above the other", line({0, 0, 0}, {10, 10, 0}), line({0, 10, 1}, {10, 0, 1}), both, {});
    add("in space", line({0, 0, 0}, {10, 10, 10}), line({0, 10, 5}, {10, 0, 5}), both, {{5, 5, 5}});
    add("in an upright plane", line({0, 0, 0}, {10, 0, 10}), line({0, 0, 10}, {10, 0, 0}), both, {{5, 0, 5}});
    add("line through a circle, along the line", line({10, 0, 0}, {-10, 0, 0}), circle({0, 0, 0}, 5), both,
        {{5, 0, 0}, {-5, 0, 0}});
    add("circle by a line, along the circle", circle({0, 0, 0}, 5), line({-10, 3, 0}, {10, 3, 0}), both,
        {{4, 3, 0}, {-4, 3, 0}});
    add("tangent", line({-10, 5, 0}, {10, 5, 0}), circle({0, 0, 0}, 5), both, {{0, 5, 0}});
    add("circle at its own start", circle({0, 0, 0}, 5), line({0, 0, 0}, {10, 0, 0}), both, {{5, 0, 0}});
    add("half of a circle", line({-10, 0, 0}, {10, 0, 0}), arc({0, 0, 0}, 5, -pi / 2, pi / 2), both, {{5, 0, 0}});
    add("the same, the arc extended", line({-10, 0, 0}, {10, 0, 0}), arc({0, 0, 0}, 5, -pi / 2, pi / 2),
        AcDb::kExtendArg, {{-5, 0, 0}, {5, 0, 0}});
    add("two circles", circle({0, 0, 0}, 5), circle({8, 0, 0}, 5), both, {{4, 3, 0}, {4, -3, 0}});
    add("circles that touch", circle({0, 0, 0}, 5), circle({8, 0, 0}, 3), both, {{5, 0, 0}});
    add("the same circle", circle({0, 0, 0}, 5), circle({0, 0, 0}, 5), both, {});
    add("one circle within the other", circle({0, 0, 0}, 5), circle({1, 0, 0}, 2), both, {});
    add("row across a square, along the outline", square(), line({-10, 100, 0}, {260, 100, 0}), both,
        {{250, 100, 0}, {0, 100, 0}});
    add("row across a square, along the row", line({-10, 100, 0}, {260, 100, 0}), square(), both,
        {{0, 100, 0}, {250, 100, 0}});
    add("row along an edge meets the edges beside it", square(), line({-10, 0, 0}, {260, 0, 0}), both,
        {{250, 0, 0}, {0, 0, 0}});
    add("row across both arms", line({-5, 20, 0}, {35, 20, 0}), lShape(), both,
        {{0, 20, 0}, {10, 20, 0}, {20, 20, 0}, {30, 20, 0}});
    add("row through two corners", line({-10, 0, 0}, {10, 0, 0}), outline({{0, -5}, {5, 0}, {0, 5}, {-5, 0}}), both,
        {{-5, 0, 0}, {5, 0, 0}});
    add("through the vertex where the outline begins", outline({{0, 0}, {10, 5}, {10, -5}}),
        line({0, -5, 0}, {0, 5, 0}), both, {{0, 0, 0}});
    add("row across a disc drawn with bulges", line({-9, 3, 0}, {9, 3, 0}), outline({{-5, 0}, {5, 0}}, true, 1.0), both,
        {{-4, 3, 0}, {4, 3, 0}});
    add("two outlines", outline({{0, 0}, {10, 0}, {10, 10}, {0, 10}}), outline({{5, 5}, {15, 5}, {15, 15}, {5, 15}}),
        both, {{10, 5, 0}, {5, 10, 0}});
    add("open polyline: only its end segments go on", outline({{0, 0}, {5, 0}, {5, 5}}, false),
        line({-5, 20, 0}, {15, 20, 0}), AcDb::kExtendThis, {{5, 20, 0}});
    add("closed polylines do not go on", square(), line({300, 0, 0}, {300, 10, 0}), AcDb::kExtendThis, {});
    add("far from the origin, exactly on the edge", line({651990, 6862100, 0}, {652310.5, 6862100, 0}),
        outline({{652000.123, 6862000}, {652300, 6862000}, {652300, 6862300}, {652000.123, 6862300}}), both,
        {{652000.123, 6862100, 0}, {652300, 6862100, 0}});
    return list;
}

} // namespace

TEST(Intersection, everyCrossingInOrder)
{
    for (const Row& row : rows()) {
        SCOPED_TRACE(row.name);
        AcGePoint3dArray points;
        ASSERT_EQ(row.first->intersectWith(row.second.get(), row.type, points), Acad::eOk);
        ASSERT_EQ(points.length(), static_cast<int>(row.expected.size()));
        for (int i = 0; i < points.length(); ++i)
            expectNear(points[i], row.expected[static_cast<std::size_t>(i)], 1e-9);
    }
}

TEST(Intersection, aVerticalEdgeIsMetExactlyWhereItStands)
{
    // A grid node on a border is told apart by comparing with <, so a rounding would draw it.
    const auto border =
        outline({{652100.0, 6862000.7}, {652299.9, 6862001.3}, {652300.0, 6862400.9}, {652100.0, 6862399.1}});
    for (double y = 6862001.5; y < 6862399.0; y += 13.7) {
        for (const bool alongRow : {false, true}) {
            const AcDbLine row({652090.3, y, 0}, {652310.9, y, 0});
            AcGePoint3dArray points;
            (alongRow ? static_cast<const AcDbCurve&>(row) : *border)
                .intersectWith(alongRow ? border.get() : static_cast<const AcDbEntity*>(&row), AcDb::kOnBothOperands,
                               points);
            ASSERT_EQ(points.length(), 2);
            EXPECT_EQ(points[alongRow ? 0 : 1].x, 652100.0);
            EXPECT_EQ(points[0].y, y);
        }
    }
}

TEST(Intersection, dropsBothOnThePlaneThatIsGiven)
{
    const AcDbLine sight({0, 0, 100}, {10, 10, 120});
    AcGePoint3dArray points;
    AcGePoint3dArray vertices;
    vertices.append({0, 10, 3});
    vertices.append({10, 0, 7});
    const AcDb3dPolyline wall(AcDb::k3dSimplePoly, vertices);
    ASSERT_EQ(wall.intersectWith(&sight, AcDb::kOnBothOperands, points), Acad::eOk);
    EXPECT_EQ(points.length(), 0);
    ASSERT_EQ(wall.intersectWith(&sight, AcDb::kOnBothOperands, AcGePlane::kXYPlane, points), Acad::eOk);
    ASSERT_EQ(points.length(), 1);
    expectNear(points[0], {5, 5, 5}); // on the wall
    ASSERT_EQ(sight.intersectWith(&wall, AcDb::kOnBothOperands, AcGePlane::kXYPlane, points), Acad::eOk);
    expectNear(points[1], {5, 5, 110}); // appended, on the line of sight
}

TEST(Intersection, polylinesOfTheOlderKindAndEllipses)
{
    AcGePoint3dArray corners;
    for (const AcGePoint3d& corner : {AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0), AcGePoint3d(10, 10, 0)})
        corners.append(corner);
    const AcDb2dPolyline triangle(AcDb::k2dSimplePoly, corners, 0.0, Adesk::kTrue);
    const AcDbLine row({-5, 2, 0}, {20, 2, 0});
    AcGePoint3dArray points;
    ASSERT_EQ(row.intersectWith(&triangle, AcDb::kOnBothOperands, points), Acad::eOk);
    ASSERT_EQ(points.length(), 2);
    expectNear(points[0], {2, 2, 0});
    expectNear(points[1], {10, 2, 0});
    points.removeAll();
    const AcDbEllipse ellipse({0, 0, 0}, {0, 0, 1}, {10, 0, 0}, 0.5);
    ASSERT_EQ(row.intersectWith(&ellipse, AcDb::kOnBothOperands, points), Acad::eOk);
    ASSERT_EQ(points.length(), 1);
    expectNear(points[0], {10 * std::sqrt(1 - 0.16), 2, 0}, 1e-3); // chords
    EXPECT_EQ(row.intersectWith(nullptr, AcDb::kOnBothOperands, points), Acad::eNullEntityPointer);
    const AcDbPoint notACurve({0, 0, 0});
    EXPECT_EQ(row.intersectWith(&notACurve, AcDb::kOnBothOperands, points), Acad::eNotApplicable);
}

TEST(Intersection, largeOutlinesAreNotTriedPairByPair)
{
    // Two saw-tooth lines of 40 000 teeth that cross on every tooth: 1.6e9 pairs of segments.
    constexpr int teeth = 40000;
    AcDbPolyline a(2 * teeth), b(2 * teeth);
    for (int i = 0; i < teeth; ++i) {
        a.addVertexAt(a.numVerts(), {i * 1.0, i % 2 == 0 ? 0.0 : 1.0});
        b.addVertexAt(b.numVerts(), {i * 1.0, i % 2 == 0 ? 1.0 : 0.0});
    }
    AcGePoint3dArray points;
    ASSERT_EQ(a.intersectWith(&b, AcDb::kOnBothOperands, points), Acad::eOk);
    EXPECT_EQ(points.length(), teeth - 1);
}
