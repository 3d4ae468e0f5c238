#include <random>

#include "gi/SpatialIndex.h"
#include "gi/ViewClip.h"

#include "SceneTest.h"

TEST(SceneView, showsABoxWhole)
{
    // 100 × 20 units on 200 × 100 pixels: half a unit a pixel, and room above and below.
    const SceneView view = SceneView::showing({1000, 50, 1100, 70}, 200, 100);
    EXPECT_EQ(view.pixel, 0.5);
    EXPECT_EQ(view.width, 100.0);
    EXPECT_EQ(view.height, 50.0);
    EXPECT_EQ(view.center.x, 1050.0);
    EXPECT_EQ(view.center.y, 60.0);
    EXPECT_NEAR(SceneView::showing({0, 0, 100, 20}, 200, 100, 0.25).pixel, 1.0, 1e-12);
    EXPECT_GT(SceneView::showing({5, 5, 5, 5}, 200, 100).pixel, 0.0); // a single point
    EXPECT_GT(SceneView::showing({}, 200, 100).pixel, 0.0);
}

TEST(SpatialIndex, findsWhatALookAtAllFinds)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(0.0, 1000.0), size(0.0, 30.0);
    for (const std::size_t count : {0U, 1U, 15U, 16U, 17U, 300U, 5000U}) {
        std::vector<Box2d> boxes;
        for (std::size_t i = 0; i < count; ++i) {
            const double x = place(random), y = place(random);
            boxes.push_back(i % 50 == 7 ? Box2d() : Box2d{x, y, x + size(random), y + size(random)});
        }
        SpatialIndex index;
        index.build(boxes);
        for (int trial = 0; trial < 40; ++trial) {
            const double x = place(random), y = place(random);
            const Box2d wanted{x, y, x + 5 * size(random), y + 5 * size(random)};
            std::vector<std::uint32_t> found, expected;
            index.query(wanted, [&](std::uint32_t at) { found.push_back(at); });
            for (std::uint32_t i = 0; i < boxes.size(); ++i)
                if (boxes[i].touches(wanted))
                    expected.push_back(i);
            std::ranges::sort(found);
            EXPECT_EQ(found, expected);
        }
    }
}

TEST(ViewClip, linesAreCutWhereTheyLeave)
{
    const Box2d box{0, 0, 10, 10};
    const AcGePoint3d zigzag[] = {{-5, 5, 0}, {5, 5, 10}, {5, 15, 0}, {8, 15, 0}, {8, 5, 0}, {8, 2, 0}};
    std::vector<std::vector<AcGePoint3d>> runs;
    clipPolyline(zigzag, box, [&](std::span<const AcGePoint3d> run) { runs.emplace_back(run.begin(), run.end()); });
    ASSERT_EQ(runs.size(), 2U);
    EXPECT_EQ(runs[0].size(), 3U);
    EXPECT_EQ(runs[0].front().x, 0.0);
    EXPECT_EQ(runs[0].front().z, 5.0); // half way up
    EXPECT_EQ(runs[0].back().y, 10.0);
    EXPECT_EQ(runs[1].front().y, 10.0);
    EXPECT_EQ(runs[1].back().y, 2.0);
}

TEST(ViewClip, ringsKeepTheirAreaWithin)
{
    // A triangle over the lower left quarter of a square, by half: what is left is a triangle of area 8.
    const std::vector<AcGePoint3d> ring = clipRing({{-4, -4, 0}, {8, -4, 0}, {-4, 8, 0}}, {0, 0, 10, 10});
    double twice = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const AcGePoint3d &a = ring[i], &b = ring[(i + 1) % ring.size()];
        twice += a.x * b.y - a.y * b.x;
    }
    EXPECT_NEAR(twice / 2.0, 8.0, 1e-9);
    EXPECT_TRUE(clipRing({{20, 20, 0}, {30, 20, 0}, {20, 30, 0}}, {0, 0, 10, 10}).empty());
}

TEST_F(SceneTest, whatIsSmallerThanAPixelIsADot)
{
    const AcDbObjectId block = addBlock(L"SYMBOLE", {new AcDbLine({-1, 0, 0}, {1, 0, 0})});
    auto* reference = new AcDbBlockReference({10, 0, 0}, block);
    auto* mark = new AcDbAttribute({11, 1, 0}, L"101", L"MAT");
    mark->setHeight(2.0);
    reference->appendAttribute(mark);
    add(reference);
    add(new AcDbLine({50, 50, 0}, {53, 50, 0}));
    SceneView view = wideView();
    view.pixel = 1.0;
    EXPECT_EQ(drawn(scene(), view).size(), 3U);
    view.pixel = 2.5; // finer than its text, coarser than its symbol
    EXPECT_EQ(drawn(scene(), view), (Lines{"dot 7: 10,0", "line 7: 50,50 53,50"}));
    view.pixel = 4.0;
    EXPECT_EQ(drawn(scene(), view), (Lines{"dot 7: 10,0", "dot 7: 51.5,50"}));
    view.simplified = false;
    EXPECT_EQ(drawn(scene(), view).size(), 3U);
}

TEST_F(SceneTest, onlyWhatTheViewHolds)
{
    for (int i = 0; i < 100; ++i)
        add(new AcDbLine({10.0 * i, 0, 0}, {10.0 * i + 5, 0, 0}));
    SceneView view = wideView();
    view.center = {500, 0};
    view.width = 32;
    EXPECT_EQ(drawn(scene(), view),
              (Lines{"line 7: 480,0 485,0", "line 7: 490,0 495,0", "line 7: 500,0 505,0", "line 7: 510,0 515,0"}));
}

TEST_F(SceneTest, aSinkCanEndTheDrawing)
{
    for (int i = 0; i < 10000; ++i)
        add(new AcDbLine({0, 0.001 * i, 0}, {5, 0.001 * i, 0}));
    struct Sink : RecordingSink {
        bool stopped() override { return lines.size() >= 100; }
    } sink;
    scene().draw(wideView(), sink);
    EXPECT_GE(sink.lines.size(), 100U);
    EXPECT_LT(sink.lines.size(), 1000U);
}

TEST_F(SceneTest, freeEntitiesAreDrawnWithTheDrawingsLayers)
{
    AcDbLine jig({1, 1, 0}, {2, 2, 0});
    jig.setColorIndex(1);
    RecordingSink sink;
    scene().draw(jig, wideView(), sink);
    EXPECT_EQ(sink.lines, Lines{"line FF0000: 1,1 2,2"});
}

TEST_F(SceneTest, aBlockHasASceneOfItsOwn)
{
    auto* definition = new AcDbAttributeDefinition({0, 0, 0}, L"défaut", L"MAT", L"?");
    definition->setHeight(1.0);
    const AcDbObjectId block = addBlock(L"SYMBOLE", {new AcDbLine({-1, 0, 0}, {1, 0, 0}), definition});
    Scene own(database, block);
    EXPECT_EQ(drawn(own), (Lines{"line 7: -1,0 1,0", "text 7: <MAT> at 0,0 along 1,0 up 0,1"}));
}
