#include <random>

#include "gi/Picking.h"

#include "SceneTest.h"

namespace {

using Ids = std::vector<AcDbObjectId>;

AcDbLine* line(AcGePoint3d from, AcGePoint3d to)
{
    return new AcDbLine(from, to);
}

Ids entitiesOf(const std::vector<PickHit>& hits)
{
    Ids ids;
    for (const PickHit& hit : hits)
        ids.push_back(hit.entity);
    return ids;
}

class Picking : public SceneTest {
protected:
    Ids at(double x, double y, double aperture = 0.5) { return entitiesOf(hitsAt(scene(), {x, y}, aperture)); }
    Ids inside(const Box2d& box) { return pickBox(scene(), box, PickExtent::inside); }
    Ids crossing(const Box2d& box) { return pickBox(scene(), box, PickExtent::crossing); }
};

} // namespace

TEST_F(Picking, topmostFirst)
{
    const AcDbObjectId below = add(line({0, 0, 0}, {10, 0, 0}));
    const AcDbObjectId above = add(line({5, -5, 0}, {5, 5, 0}));
    EXPECT_EQ(at(5, 0), (Ids{above, below}));
    EXPECT_EQ(at(2, 0.4), Ids{below});
    EXPECT_EQ(at(2, 0.6), Ids{});
}

TEST_F(Picking, curvesAreHitOnTheirLineAndAreasInside)
{
    const AcDbObjectId circle = add(new AcDbCircle({0, 0, 0}, AcGeVector3d::kZAxis, 10.0));
    EXPECT_EQ(at(0, 0), Ids{});
    EXPECT_EQ(at(0, 10), Ids{circle});
    EXPECT_EQ(at(7.0711, 7.0711, 0.001), Ids{circle});
    const AcDbObjectId solid = add(new AcDbSolid({20, 0, 0}, {30, 0, 0}, {20, 10, 0}, {30, 10, 0}));
    EXPECT_EQ(at(25, 5), Ids{solid});
    auto* text = new AcDbText({40, 0, 0}, L"Borne", AcDbObjectId::kNull, 5.0);
    const AcDbObjectId shown = add(text);
    EXPECT_EQ(at(45, 2.5), Ids{shown}); // between its letters too
    EXPECT_EQ(at(45, 7), Ids{});
}

TEST_F(Picking, gapsOfDashesAreHitAsWell)
{
    AcDbLine* dashed = line({0, 0, 0}, {10, 0, 0});
    dashed->setLinetype(addLinetype(L"TIRETS", {2.0, -1.0}));
    const AcDbObjectId id = add(dashed);
    EXPECT_EQ(at(2.0, 0.0, 0.1), Ids{id}); // in a gap: see the test of dashes
}

TEST_F(Picking, pathWithinReferences)
{
    AcDbLine* bar = line({0, 0, 0}, {3, 0, 0});
    const AcDbObjectId inner = addBlock(L"DEDANS", {bar});
    auto* nested = new AcDbBlockReference({5, 0, 0}, inner);
    const AcDbObjectId outer = addBlock(L"DEHORS", {nested});
    auto* reference = new AcDbBlockReference({100, 0, 0}, outer);
    reference->setScaleFactors({2.0, 2.0, 2.0});
    auto* mark = new AcDbAttribute({100, 10, 0}, L"101", L"MAT");
    mark->setHeight(2.0);
    reference->appendAttribute(mark);
    add(reference);

    const auto hits = hitsAt(scene(), {112, 0}, 0.1); // 100 + 2 · (5 + 1)
    ASSERT_EQ(hits.size(), 1U);
    EXPECT_EQ(hits[0].path, (Ids{bar->objectId(), nested->objectId(), reference->objectId()}));
    const AcGePoint3d end = hits[0].toWorld * AcGePoint3d(3, 0, 0);
    EXPECT_NEAR(end.x, 116.0, 1e-9);

    const auto onText = hitsAt(scene(), {101, 11}, 0.1);
    ASSERT_EQ(onText.size(), 1U);
    EXPECT_EQ(onText[0].path, (Ids{mark->objectId(), reference->objectId()}));
}

TEST_F(Picking, nothingHiddenIsFound)
{
    AcDbLine* shown = line({0, 0, 0}, {10, 0, 0});
    const AcDbObjectId id = add(shown);
    changeLayer(L"0", [](AcDbLayerTableRecord& layer) { layer.setIsOff(true); });
    EXPECT_EQ(at(5, 0), Ids{});
    EXPECT_EQ(crossing({-1, -1, 20, 20}), Ids{});
    EXPECT_EQ(inside({-1, -1, 20, 20}), Ids{});
    changeLayer(L"0", [](AcDbLayerTableRecord& layer) { layer.setIsOff(false); });
    EXPECT_EQ(inside({-1, -1, 20, 20}), Ids{id});
    {
        const AcDbObjectPointer<AcDbLine> opened(id, AcDb::kForWrite);
        opened->setVisibility(AcDb::kInvisible);
    }
    EXPECT_EQ(crossing({-1, -1, 20, 20}), Ids{});
}

TEST_F(Picking, windowsAndCrossings)
{
    const AcDbObjectId within = add(line({1, 1, 0}, {2, 2, 0}));
    const AcDbObjectId across = add(line({-5, 5, 0}, {15, 5, 0}));
    const AcDbObjectId cornerOnly = add(line({9, -3, 0}, {13, 1, 0})); // passes the corner (10, 0) at a distance
    const AcDbObjectId round = add(new AcDbCircle({5, 5, 0}, AcGeVector3d::kZAxis, 30.0)); // goes all round
    const AcDbObjectId ground = add(new AcDbSolid({-50, -50, 0}, {50, -50, 0}, {-50, 50, 0}, {50, 50, 0}));
    const Box2d box{0, 0, 10, 10};
    EXPECT_EQ(inside(box), Ids{within});
    EXPECT_EQ(crossing(box), (Ids{ground, across, within}));
    EXPECT_EQ(inside({-60, -60, 60, 60}), (Ids{ground, round, cornerOnly, across, within}));
    const AcGePoint2d triangle[] = {{0, 0}, {10, 0}, {0, 10}};
    EXPECT_EQ(pickPolygon(scene(), triangle, PickExtent::inside), Ids{within});
    EXPECT_EQ(pickPolygon(scene(), triangle, PickExtent::crossing), (Ids{ground, across, within}));
    const AcGePoint2d fence[] = {{9, -1}, {12, -1}, {12, 6}};
    EXPECT_EQ(pickFence(scene(), fence), (Ids{ground, cornerOnly, across}));
}

/// A hollow polygon: what lies in its notch is in its box, and not in it.
TEST_F(Picking, polygonsWithNotches)
{
    const AcDbObjectId inNotch = add(line({4, 6, 0}, {6, 6, 0}));
    const AcDbObjectId over = add(line({1, 8, 0}, {9, 8, 0}));
    const AcDbObjectId low = add(line({1, 1, 0}, {9, 1, 0}));
    const AcGePoint2d shape[] = {{0, 0}, {10, 0}, {10, 10}, {7, 10}, {7, 3}, {3, 3}, {3, 10}, {0, 10}};
    EXPECT_EQ(pickPolygon(scene(), shape, PickExtent::inside), Ids{low});
    EXPECT_EQ(pickPolygon(scene(), shape, PickExtent::crossing), (Ids{low, over}));
    (void)inNotch;
}

/// Segments in a box, told by sampling them finely.
TEST_F(Picking, boxesAgreeWithSamples)
{
    std::mt19937 random(20261);
    std::uniform_real_distribution<double> place(-50.0, 50.0);
    struct Sample {
        AcDbObjectId id;
        AcGePoint3d from, to;
    };
    std::vector<Sample> samples;
    for (int i = 0; i < 300; ++i) {
        const AcGePoint3d from(place(random), place(random), 0), to(place(random), place(random), 0);
        samples.push_back({add(line(from, to)), from, to});
    }
    for (int trial = 0; trial < 20; ++trial) {
        Box2d box;
        box.add(place(random), place(random));
        box.add(place(random), place(random));
        const Ids found = crossing(box), whole = inside(box);
        for (const Sample& s : samples) {
            const bool isWhole = box.holds(s.from.x, s.from.y) && box.holds(s.to.x, s.to.y);
            EXPECT_EQ(std::ranges::count(whole, s.id), isWhole ? 1 : 0);
            bool touches = false;
            for (int k = 0; k <= 2000 && !touches; ++k) {
                const AcGePoint3d p = s.from + (s.to - s.from) * (k / 2000.0);
                touches = box.holds(p.x, p.y);
            }
            if (touches) {
                EXPECT_EQ(std::ranges::count(found, s.id), 1);
            } else if (!box.grown(0.1).holds(0, 0) && std::ranges::count(found, s.id) == 1) {
                // A touch that the samples stepped over is a short one: the middle of it lies next to the box.
                bool near = false;
                for (int k = 0; k <= 2000 && !near; ++k) {
                    const AcGePoint3d p = s.from + (s.to - s.from) * (k / 2000.0);
                    near = box.grown(0.1).holds(p.x, p.y);
                }
                EXPECT_TRUE(near);
            }
        }
    }
}
