#include <cmath>

#include "gi/ObjectSnap.h"

#include "dbelipse.h"
#include "SceneTest.h"

namespace {

constexpr unsigned bits(std::initializer_list<SnapKind> kinds)
{
    unsigned sum = 0;
    for (const SnapKind kind : kinds)
        sum |= static_cast<unsigned>(kind);
    return sum;
}

class Snap : public SceneTest {
protected:
    /// One unit around.
    void expectSnap(AcGePoint2d cursor, unsigned kinds, SnapKind kind, AcGePoint3d point,
                    const AcGePoint3d* from = nullptr)
    {
        const auto found = snapAt(scene(), cursor, 1.0, kinds, from);
        ASSERT_TRUE(found.has_value()) << cursor.x << " " << cursor.y;
        EXPECT_EQ(found->kind, kind);
        EXPECT_NEAR(found->point.distanceTo(point), 0.0, 1e-7)
            << found->point.x << " " << found->point.y << " " << found->point.z;
    }
};

constexpr unsigned all = 1 | 2 | 4 | 8 | 16 | 32 | 64 | 128;

} // namespace

TEST_F(Snap, linesWithTheirAltitude)
{
    const AcDbObjectId id = add(new AcDbLine({0, 0, 10}, {10, 0, 20}));
    expectSnap({0.5, 0.5}, all, SnapKind::end, {0, 0, 10});
    expectSnap({5.2, 0.3}, all, SnapKind::middle, {5, 0, 15});
    expectSnap({3, 0.5}, bits({SnapKind::nearest}), SnapKind::nearest, {3, 0, 13});
    EXPECT_EQ(snapAt(scene(), {0.5, 0.5}, 1.0, all)->entity, id);
    EXPECT_FALSE(snapAt(scene(), {3, 0.5}, 1.0, bits({SnapKind::end, SnapKind::middle})).has_value());
    EXPECT_FALSE(snapAt(scene(), {0.5, 2}, 1.0, all).has_value());
}

TEST_F(Snap, circlesAndArcs)
{
    add(new AcDbCircle({0, 0, 5}, AcGeVector3d::kZAxis, 10.0));
    expectSnap({0.3, 0.3}, all, SnapKind::center, {0, 0, 5});
    expectSnap({7.1, 7.1}, all, SnapKind::center, {0, 0, 5}); // found from its curve
    expectSnap({0.2, 9.8}, all, SnapKind::quadrant, {0, 10, 5});
    expectSnap({-9.9, 0.1}, all, SnapKind::quadrant, {-10, 0, 5});
    expectSnap({6.4, 8.4}, bits({SnapKind::nearest}), SnapKind::nearest,
               {10 * 6.4 / std::hypot(6.4, 8.4), 10 * 8.4 / std::hypot(6.4, 8.4), 5});
    add(new AcDbArc({100, 0, 0}, 10.0, 0.0, 1.5707963267948966));
    expectSnap({110, 0.2}, bits({SnapKind::end}), SnapKind::end, {110, 0, 0});
    expectSnap({107, 7}, bits({SnapKind::middle}), SnapKind::middle,
               {100 + 10 * std::sqrt(0.5), 10 * std::sqrt(0.5), 0});
    EXPECT_FALSE(snapAt(scene(), {90, 0}, 1.0, bits({SnapKind::quadrant})).has_value()); // not on the arc
}

TEST_F(Snap, polylinesAndTheirArcs)
{
    auto* polyline = new AcDbPolyline;
    polyline->addVertexAt(0, {0, 0}, 1.0); // half a turn to (20, 0), below
    polyline->addVertexAt(1, {20, 0});
    polyline->addVertexAt(2, {30, 0});
    add(polyline);
    expectSnap({20.3, 0.2}, bits({SnapKind::end}), SnapKind::end, {20, 0, 0});
    expectSnap({10.2, -9.8}, bits({SnapKind::middle}), SnapKind::middle, {10, -10, 0});
    expectSnap({25.2, 0.3}, bits({SnapKind::middle}), SnapKind::middle, {25, 0, 0});
    expectSnap({17.07, -7.07}, bits({SnapKind::center}), SnapKind::center, {10, 0, 0});
}

TEST_F(Snap, intersections)
{
    add(new AcDbLine({0, 0, 7}, {10, 10, 7}));
    add(new AcDbLine({0, 10, 3}, {10, 0, 3}));
    const auto found = snapAt(scene(), {5.2, 5.1}, 1.0, bits({SnapKind::intersection}));
    ASSERT_TRUE(found.has_value());
    EXPECT_NEAR(found->point.x, 5.0, 1e-9);
    EXPECT_NEAR(found->point.y, 5.0, 1e-9);
    EXPECT_EQ(found->point.z, 3.0); // of the one on top
    add(new AcDbCircle({100, 0, 0}, AcGeVector3d::kZAxis, 5.0));
    add(new AcDbLine({90, 3, 0}, {110, 3, 0}));
    expectSnap({104.1, 3.1}, bits({SnapKind::intersection}), SnapKind::intersection, {104, 3, 0});
    expectSnap({95.9, 3.1}, bits({SnapKind::intersection}), SnapKind::intersection, {96, 3, 0});
}

TEST_F(Snap, perpendicularFromTheLastPoint)
{
    add(new AcDbLine({0, 0, 0}, {10, 0, 0}));
    const AcGePoint3d from(4, 8, 0);
    expectSnap({4.5, 0.2}, bits({SnapKind::perpendicular}), SnapKind::perpendicular, {4, 0, 0}, &from);
    expectSnap({9, 0.2}, bits({SnapKind::perpendicular}), SnapKind::perpendicular, {4, 0, 0}, &from);
    EXPECT_FALSE(snapAt(scene(), {4.5, 0.2}, 1.0, bits({SnapKind::perpendicular})).has_value());
    expectSnap({9.8, 0.2}, bits({SnapKind::perpendicular, SnapKind::end}), SnapKind::end, {10, 0, 0}, &from);
    add(new AcDbCircle({100, 0, 0}, AcGeVector3d::kZAxis, 5.0));
    const AcGePoint3d far(100, 50, 0);
    expectSnap({100.3, 4.9}, bits({SnapKind::perpendicular}), SnapKind::perpendicular, {100, 5, 0}, &far);
    expectSnap({99.8, -4.9}, bits({SnapKind::perpendicular}), SnapKind::perpendicular, {100, -5, 0}, &far);
}

TEST_F(Snap, nodesInsertionsAndSolids)
{
    add(new AcDbPoint({1, 2, 3}));
    expectSnap({1.2, 2.2}, all, SnapKind::node, {1, 2, 3});
    auto* text = new AcDbText({20, 0, 4}, L"Borne", AcDbObjectId::kNull, 2.0);
    add(text);
    expectSnap({20.1, 0.1}, all, SnapKind::insertion, {20, 0, 4});
    const AcDbObjectId block = addBlock(L"SYMBOLE", {new AcDbLine({-1, 0, 0}, {1, 0, 0})});
    auto* reference = new AcDbBlockReference({50, 50, 6}, block);
    reference->setScaleFactors({4.0, 4.0, 1.0});
    add(reference);
    expectSnap({50.1, 50.1}, bits({SnapKind::insertion}), SnapKind::insertion, {50, 50, 6});
    expectSnap({54.1, 50.1}, all, SnapKind::end, {54, 50, 6}); // within the block
    add(new AcDbSolid({80, 0, 0}, {90, 0, 0}, {80, 10, 0}, {90, 10, 0}));
    expectSnap({90.2, 10.2}, bits({SnapKind::end}), SnapKind::end, {90, 10, 0});
}

TEST_F(Snap, theNearerPointWins)
{
    add(new AcDbLine({0, 0, 0}, {1.5, 0, 0}));
    expectSnap({0.9, 0}, bits({SnapKind::end, SnapKind::middle}), SnapKind::middle, {0.75, 0, 0});
    expectSnap({1.3, 0}, bits({SnapKind::end, SnapKind::middle}), SnapKind::end, {1.5, 0, 0});
    EXPECT_FALSE(snapAt(scene(), {0.9, 0}, 1.0, 0).has_value());
}
