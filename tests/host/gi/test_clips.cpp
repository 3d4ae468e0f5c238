#include <algorithm>
#include <memory>

#include "gi/ClippedSink.h"
#include "gi/ObjectSnap.h"

#include "SceneTest.h"
#include "SmallDrawing.h"

/// What a ring leaves of texts and of references.

namespace {

/// A line and a filled square in a block, shown at (20, 0) within the ring that is given.
SmallDrawing clipped(const std::string& ring, bool shown)
{
    std::string matrices;
    for (int i = 0; i < 2; ++i) // world to block, world to the ring: the reference's place taken away
        matrices += "40 1\n40 0\n40 0\n40 -20\n40 0\n40 1\n40 0\n40 0\n40 0\n40 0\n40 1\n40 0\n";
    SmallDrawing drawing;
    drawing.blockRecords =
        "0 BLOCK_RECORD\n5 70\n330 1\n100 AcDbSymbolTableRecord\n100 AcDbBlockTableRecord\n2 B\n340 0\n";
    drawing.blocks =
        "0 BLOCK\n5 72\n330 70\n100 AcDbEntity\n8 0\n100 AcDbBlockBegin\n2 B\n70 0\n10 0\n20 0\n30 0\n3 B\n"
        "1 \n0 LINE\n5 73\n330 70\n100 AcDbEntity\n8 0\n100 AcDbLine\n10 0\n20 5\n30 0\n11 10\n21 5\n31 0\n"
        "0 SOLID\n5 75\n330 70\n100 AcDbEntity\n8 0\n100 AcDbTrace\n10 5\n20 6\n30 0\n11 9\n21 6\n31 0\n"
        "12 5\n22 7\n32 0\n13 9\n23 7\n33 0\n"
        "0 ENDBLK\n5 74\n330 70\n100 AcDbEntity\n8 0\n100 AcDbBlockEnd\n";
    drawing.entities = "0 INSERT\n5 80\n102 {ACAD_XDICTIONARY\n360 90\n102 }\n330 1F\n100 AcDbEntity\n8 0\n"
                       "100 AcDbBlockReference\n2 B\n10 20\n20 0\n30 0\n";
    drawing.objects = "0 DICTIONARY\n5 90\n330 80\n100 AcDbDictionary\n281 1\n3 ACAD_FILTER\n350 91\n"
                      "0 DICTIONARY\n5 91\n330 90\n100 AcDbDictionary\n281 1\n3 SPATIAL\n350 92\n"
                      "0 SPATIAL_FILTER\n5 92\n330 91\n100 AcDbFilter\n100 AcDbSpatialFilter\n" +
                      ring + "210 0\n220 0\n230 1\n11 0\n21 0\n31 0\n71 " + (shown ? "1" : "0") +
                      "\n72 1\n40 99\n73 0\n" + matrices;
    return drawing;
}

Lines linesOf(const SmallDrawing& drawing)
{
    AcDbDatabase database(false);
    database.impl().load(std::make_unique<DxfFile>(drawing.text(), "essai.dxf"));
    return drawn(Scene::of(database));
}

} // namespace

TEST(Clips, textsAreCutAtARing)
{
    RecordingSink seen;
    ClippedSink sink(seen, {{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}});
    struct Row {
        const char* name;
        AcGePoint3d origin;
        double height;
        const char* shown;
    };
    const Row textRows[] = {{"within", {2, 2, 0}, 1.0, ""},
                            {"sticks out to the right", {8, 2, 0}, 1.0, " cut"},
                            {"sticks out to the left", {-3, 2, 0}, 1.0, " cut"},
                            {"apart", {20, 2, 0}, 1.0, nullptr},
                            {"larger than the ring", {-50, -40, 0}, 90.0, " cut"}};
    for (const Row& row : textRows) {
        SCOPED_TRACE(row.name);
        TextItem item;
        item.text = L"abcd";
        item.origin = row.origin;
        item.along = {row.height, 0, 0};
        item.up = {0, row.height, 0};
        item.width = 4.0;
        seen.lines.clear();
        sink.text(item, {});
        ASSERT_EQ(seen.lines.size(), row.shown ? 1U : 0U);
        EXPECT_TRUE(seen.lines.empty() || seen.lines.front().ends_with(" cut") == (*row.shown != 0));
    }
}

TEST(Clips, ringsInEachOtherDoNotMultiplyPieces)
{
    // Twenty times the same: what only touches a piece is no piece to be cut again.
    const std::vector<AcGePoint3d> u{{0, 0, 0}, {9, 0, 0}, {9, 9, 0}, {6, 9, 0},
                                     {6, 3, 0}, {3, 3, 0}, {3, 9, 0}, {0, 9, 0}};
    RecordingSink seen;
    std::vector<std::unique_ptr<ClippedSink>> sinks;
    for (int i = 0; i < 20; ++i)
        sinks.push_back(std::make_unique<ClippedSink>(i == 0 ? static_cast<GraphicsSink&>(seen) : *sinks.back(), u));
    const std::vector<std::vector<AcGePoint3d>> square{{{-1, -1, 0}, {10, -1, 0}, {10, 10, 0}, {-1, 10, 0}}};
    sinks.back()->polygon(square, {});
    EXPECT_EQ(seen.lines.size(), u.size() - 2);
}

TEST(Clips, whatIsCutAwayDoesNotSnap)
{
    AcDbDatabase database(false);
    database.impl().load(
        std::make_unique<DxfFile>(clipped("70 2\n10 2\n20 2\n10 7\n20 8\n", true).text(), "essai.dxf"));
    Scene& scene = Scene::of(database);
    const unsigned ends = static_cast<unsigned>(SnapKind::end), nearest = static_cast<unsigned>(SnapKind::nearest);
    EXPECT_FALSE(snapAt(scene, {20, 5}, 0.5, ends));
    EXPECT_FALSE(snapAt(scene, {21, 5}, 0.5, nearest));
    EXPECT_TRUE(snapAt(scene, {24, 5}, 0.5, nearest));
    EXPECT_TRUE(snapAt(scene, {25, 7}, 0.5, ends)) << "a corner of the area";
}

TEST(Clips, clippedReferencesAreCut)
{
    const std::string whole = "line 7: 20,5 30,5";
    EXPECT_EQ(linesOf(clipped("70 2\n10 2\n20 2\n10 7\n20 8\n", false)).front(), whole) << "the clip is off";
    EXPECT_EQ(linesOf(clipped("70 2\n10 2\n20 2\n10 7\n20 8\n", true)),
              (Lines{"line 7: 22,5 27,5", "area 7: 25,6 27,6 27,7 25,7"}));
    // A ring like a U: the line is seen in its two arms.
    const Lines arms = linesOf(clipped(
        "70 8\n10 1\n20 1\n10 9\n20 1\n10 9\n20 9\n10 7\n20 9\n10 7\n20 3\n10 3\n20 3\n10 3\n20 9\n10 1\n20 9\n",
        true));
    ASSERT_GE(arms.size(), 2U);
    EXPECT_EQ(arms[0], "line 7: 21,5 23,5");
    EXPECT_EQ(arms[1], "line 7: 27,5 29,5");
    // A star in one stroke about (6, 6.5): the area reaches into its arms, beyond the pentagon in its middle.
    const Lines star = linesOf(clipped("70 5\n10 6\n20 9.5\n10 4.24\n20 4.07\n10 8.85\n20 7.43\n10 3.15\n20 7.43\n"
                                       "10 7.76\n20 4.07\n",
                                       true));
    EXPECT_GT(std::ranges::count_if(star, [](const std::string& line) { return line.starts_with("area"); }), 1);
}
