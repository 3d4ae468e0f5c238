#include <cmath>

#include "gi/ObjectSnap.h"
#include "gi/Picking.h"

#include "dbdim.h"
#include "DrawingWithEntities.h"
#include "SceneTest.h"

/// Drawings that no program would make, and that a picture must survive: finite coordinates, bounded work.

namespace {

/// Counts, and checks that every coordinate is a number.
class CountingSink : public GraphicsSink {
public:
    long count = 0;

    void polyline(Points points, const Appearance&) override { check(points); }
    void polygon(std::span<const std::vector<AcGePoint3d>> rings, const Appearance&) override
    {
        for (const auto& ring : rings)
            check(ring);
    }
    void dot(const AcGePoint3d& point, const Appearance&) override { check({&point, 1}); }
    void text(const TextItem& item, const Appearance&) override { check({&item.origin, 1}); }

private:
    void check(Points points)
    {
        ++count;
        for (const AcGePoint3d& p : points)
            if (!std::isfinite(p.x) || !std::isfinite(p.y))
                ADD_FAILURE() << p.x << " " << p.y;
    }
};

/// Everything that a person can do with a picture.
long exercise(Scene& scene)
{
    CountingSink sink;
    const Box2d box = scene.extents();
    for (const SceneView& view : {wideView(), SceneView::showing(box, 1600, 1000), SceneView::showing({}, 0, 0)})
        scene.draw(view, sink);
    hitsAt(scene, {0, 0}, 1.0);
    snapAt(scene, {0, 0}, 1.0, ~0U);
    pickBox(scene, {-10, -10, 10, 10}, PickExtent::crossing);
    pickBox(scene, {-10, -10, 10, 10}, PickExtent::inside);
    return sink.count;
}

using Hostile = SceneTest; // unbounded work meets the time limit of a test

} // namespace

TEST_F(Hostile, blocksWithinThemselves)
{
    const AcDbObjectId a = addBlock(L"A", {new AcDbLine({0, 0, 0}, {1, 0, 0})});
    const AcDbObjectId b = addBlock(L"B", {new AcDbBlockReference({0, 1, 0}, a)});
    addTo(a, new AcDbBlockReference({0, 2, 0}, b));
    addTo(a, new AcDbBlockReference({0, 3, 0}, a));
    add(new AcDbBlockReference({0, 0, 0}, a));
    EXPECT_EQ(drawn(scene()), Lines{"line 7: 0,0 1,0"});
    exercise(scene());
}

/// Each block shows the one before it ten times, at the same place and size: 10^12 lines in all.
TEST_F(Hostile, blocksThatMultiply)
{
    AcDbObjectId block = addBlock(L"N0", {new AcDbLine({0, 0, 0}, {100, 0, 0})});
    for (int level = 1; level <= 12; ++level) {
        const AcDbObjectId next = addBlock((L"N" + std::to_wstring(level)).c_str(), {});
        for (int i = 0; i < 10; ++i)
            addTo(next, new AcDbBlockReference({0, 0, 0}, block));
        block = next;
    }
    add(new AcDbBlockReference({0, 0, 0}, block));
    CountingSink sink;
    scene().draw(wideView(), sink);
    EXPECT_GT(sink.count, 0);
    EXPECT_LT(sink.count, 20000000);
}

TEST_F(Hostile, deepNesting)
{
    AcDbObjectId block = addBlock(L"N0", {new AcDbLine({0, 0, 0}, {1, 0, 0})});
    for (int level = 1; level <= 3000; ++level)
        block = addBlock((L"N" + std::to_wstring(level)).c_str(), {new AcDbBlockReference({0, 0, 0}, block)});
    add(new AcDbBlockReference({0, 0, 0}, block));
    exercise(scene());
}

/// Patterns of dots, of nothing, of too much; and lines so long that a dash cannot be added to a distance on them.
TEST_F(Hostile, patternsOfAnyKind)
{
    const std::vector<double> patterns[] = {{0.0, -6.35},
                                            {0.0, 0.0, -1.0},
                                            {-1e-300, 1.0},
                                            {1e-12, -1e-12, 0.05, -0.05},
                                            std::vector<double>(900, -0.05),
                                            std::vector<double>(100000, -1e-6)};
    int number = 0;
    for (const std::vector<double>& pattern : patterns) {
        const AcDbObjectId linetype = addLinetype((L"M" + std::to_wstring(++number)).c_str(), pattern);
        for (const double length : {99.9, 12.7, 1e9, 1e18}) {
            auto* shown = new AcDbLine({-length, -1, 0}, {length, 1, 0});
            shown->setLinetype(linetype);
            add(shown);
        }
    }
    EXPECT_LT(exercise(scene()), 10000000);
}

TEST_F(Hostile, endlessRowsAndColumns)
{
    const AcDbObjectId block = addBlock(L"TRAIT", {new AcDbLine({0, 0, 0}, {1, 0, 0})});
    for (const double spacing : {2.0, 0.0, 1e-9, 1e40, 0.001}) {
        auto* array = new AcDbMInsertBlock;
        array->setBlockTableRecord(block);
        array->setRows(30000);
        array->setColumns(30000);
        array->setRowSpacing(spacing);
        array->setColumnSpacing(spacing);
        add(array);
    }
    EXPECT_GT(exercise(scene()), 0);
    // Close by, the cells are whole: rows at 0 and 2, columns likewise, of the first array.
    SceneView near = wideView();
    near.center = {1001.5, 1001.0};
    near.width = near.height = 2.5;
    const Lines lines = drawn(scene(), near);
    EXPECT_EQ(std::ranges::count(lines, "line 7: 1000,1000 1001,1000"), 1);
    EXPECT_EQ(std::ranges::count(lines, "line 7: 1002,1002 1003,1002"), 1);
    EXPECT_EQ(std::ranges::count(lines, "line 7: 1004,1000 1005,1000"), 0);
}

TEST_F(Hostile, linetypesOfNoUse)
{
    int number = 0;
    for (const std::vector<double>& dashes :
         {std::vector<double>{0.0}, {0.0, 0.0}, {-1.0}, {1e-300, -1e-300}, {1e300, -1e300}, {NAN, -1.0}, {1.0, 1.0}}) {
        auto* line = new AcDbLine({0, 0, 0}, {1e9, 1e9, 0});
        line->setLinetype(addLinetype((L"T" + std::to_wstring(number++)).c_str(), dashes));
        line->setLinetypeScale(number % 2 ? -1.0 : 1e-12);
        add(line);
    }
    EXPECT_GT(exercise(scene()), 0);
}

TEST(HostileRecords, numbersThatAreNone)
{
    // "nan" and "inf" where numbers are expected, and coordinates beyond all reckoning.
    for (const char* value : {"nan", "inf", "-inf", "1e308", "-1e300", "1e40"}) {
        const std::string v = value;
        const std::string records =
            "0 LINE\n100 AcDbLine\n10 " + v + "\n20 0\n11 1\n21 " + v +
            "\n0 LINE\n100 AcDbLine\n10 0\n20 0\n11 5\n21 5\n"
            "0 CIRCLE\n100 AcDbCircle\n10 0\n20 0\n40 " +
            v + "\n0 ARC\n100 AcDbCircle\n10 " + v + "\n20 0\n40 1\n100 AcDbArc\n50 " + v + "\n51 " + v +
            "\n0 TEXT\n100 AcDbText\n10 0\n20 0\n40 " + v + "\n1 A\n50 " + v +
            "\n100 AcDbText\n0 ELLIPSE\n100 AcDbEllipse\n10 0\n20 0\n11 " + v + "\n21 0\n40 " + v + "\n41 0\n42 " + v +
            "\n0 LWPOLYLINE\n100 AcDbPolyline\n90 3\n70 1\n43 " + v + "\n10 0\n20 0\n42 " + v + "\n10 " + v +
            "\n20 1\n10 3\n20 3\n"
            "0 SPLINE\n100 AcDbSpline\n70 8\n71 3\n72 8\n73 4\n74 0\n40 0\n40 0\n40 0\n40 0\n40 1\n40 1\n40 1\n40 " +
            v + "\n10 0\n20 0\n10 " + v +
            "\n20 2\n10 4\n20 2\n10 4\n20 0\n"
            "0 MTEXT\n100 AcDbMText\n10 0\n20 0\n40 " +
            v + "\n41 " + v + "\n71 5\n1 a\\H" + v + ";b\\W" + v + "x;c\\Q" + v + ";d\n44 " + v +
            "\n0 POINT\n100 AcDbPoint\n10 " + v + "\n20 0\n50 " + v + "\n0 HATCH\n100 AcDbHatch\n10 0\n20 0\n30 " + v +
            "\n210 0\n220 0\n230 1\n2 X\n70 0\n71 0\n91 1\n92 3\n72 1\n73 1\n93 3\n10 0\n20 0\n42 " + v +
            "\n10 9\n20 0\n42 0\n10 9\n20 " + v + "\n42 0\n97 0\n75 0\n76 1\n52 0\n41 1\n77 0\n78 1\n53 " + v +
            "\n43 0\n44 " + v + "\n45 0\n46 " + v + "\n79 2\n49 " + v + "\n49 -1\n98 0\n";
        SCOPED_TRACE(value);
        DrawingWithEntities drawing(records);
        Scene& scene = Scene::of(drawing.database());
        EXPECT_GT(exercise(scene), 0); // the sound line is there
        EXPECT_TRUE(std::isfinite(scene.extents().width()));
    }
}

TEST(HostileRecords, hatchesWithLinesWithoutEnd)
{
    // A thousandth of a hair apart over a kilometre; offsets along the lines; one that never leaves its place.
    for (const char* offset : {"45 0\n46 0.000001\n", "45 1\n46 0\n", "45 0\n46 0\n", "45 0\n46 1e-200\n"}) {
        DrawingWithEntities drawing(
            "0 HATCH\n100 AcDbHatch\n10 0\n20 0\n30 0\n210 0\n220 0\n230 1\n2 X\n70 0\n71 0\n91 1\n"
            "92 3\n72 0\n73 1\n93 4\n10 0\n20 0\n10 1000\n20 0\n10 1000\n20 1000\n10 0\n20 1000\n"
            "97 0\n75 0\n76 1\n52 0\n41 1\n77 0\n78 1\n53 0\n43 0\n44 0\n" +
            std::string(offset) + "79 2\n49 0.0001\n49 -0.0001\n98 0\n");
        exercise(Scene::of(drawing.database()));
    }
}

TEST(HostileRecords, farCoordinatesAreCutToTheView)
{
    DrawingWithEntities drawing(
        "0 LINE\n100 AcDbLine\n10 -1e15\n20 3\n11 1e15\n21 3\n"
        "0 SOLID\n100 AcDbTrace\n10 -1e12\n20 -1e12\n11 1e12\n21 -1e12\n12 -1e12\n22 1e12\n13 1e12\n"
        "23 1e12\n");
    struct Sink : RecordingSink {
        double furthest = 0.0;
        void polygon(std::span<const std::vector<AcGePoint3d>> rings, const Appearance&) override
        {
            for (const AcGePoint3d& p : rings.front())
                furthest = std::max({furthest, std::fabs(p.x), std::fabs(p.y)});
        }
    } sink;
    Scene::of(drawing.database()).draw(wideView(), sink);
    ASSERT_EQ(sink.polylines.size(), 1U);
    for (const AcGePoint3d& p : sink.polylines.front())
        EXPECT_LE(std::fabs(p.x), 1000.0);
    EXPECT_LE(sink.furthest, 1000.0);
    EXPECT_GE(sink.furthest, 100.0); // all of the view is covered
}
