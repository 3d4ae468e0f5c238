#include "text/TextMetrics.h"

#include "DrawingWithEntities.h"
#include "SceneTest.h"

namespace {

/// Digits are equally wide: widths of texts made of them are easy to tell.
const double digit = characterWidth(L'0');

} // namespace

TEST(TextAlignment, eachModeAboutItsPoint)
{
    struct Row {
        int horizontal, vertical;
        double back, down; // from the point, in widths of the text and in heights
    };
    constexpr Row rows[] = {{0, 3, 0.0, 1.0}, {0, 2, 0.0, 0.5}, {1, 0, 0.5, 0.0},   {2, 0, 1.0, 0.0},
                            {4, 0, 0.5, 0.5}, {2, 3, 1.0, 1.0}, {1, 1, 0.5, -0.32}, {2, 2, 1.0, 0.5}};
    for (const Row& row : rows) {
        DrawingWithEntities drawing("0 TEXT\n100 AcDbText\n10 1\n20 1\n40 2\n1 1234\n72 " +
                                    std::to_string(row.horizontal) + "\n11 50\n21 20\n100 AcDbText\n73 " +
                                    std::to_string(row.vertical) + "\n");
        struct Sink : RecordingSink {
            AcGePoint3d origin;
            void text(const TextItem& item, const Appearance&) override { origin = item.origin; }
        } sink;
        Scene::of(drawing.database()).draw(wideView(), sink);
        const double width = 4 * digit * 2.0;
        EXPECT_NEAR(sink.origin.x, 50.0 - row.back * width, 1e-9) << row.horizontal << " " << row.vertical;
        EXPECT_NEAR(sink.origin.y, 20.0 - row.down * 2.0, 1e-9) << row.horizontal << " " << row.vertical;
    }
}

TEST(TextAlignment, alignedAndFittedTextsFillTheWay)
{
    // From (0, 0) to (0, 10), turned by a quarter; the height of the fitted one stays.
    struct Row {
        int mode;
        double height;
    };
    for (const Row& row : {Row{5, 2.0}, Row{3, 10.0 / (4 * digit)}}) {
        DrawingWithEntities drawing("0 TEXT\n100 AcDbText\n10 0\n20 0\n40 2\n1 1234\n72 " + std::to_string(row.mode) +
                                    "\n11 0\n21 10\n100 AcDbText\n");
        struct Sink : RecordingSink {
            TextItem item;
            void text(const TextItem& shown, const Appearance&) override { item = shown; }
        } sink;
        Scene::of(drawing.database()).draw(wideView(), sink);
        EXPECT_NEAR(sink.item.along.y * 4 * digit, 10.0, 1e-9) << row.mode;
        EXPECT_NEAR(sink.item.along.x, 0.0, 1e-9) << row.mode;
        EXPECT_NEAR(sink.item.up.x, -row.height, 1e-9) << row.mode;
    }
}

TEST(MText, standsTurnedAtItsPlace)
{
    DrawingWithEntities drawing(
        "0 MTEXT\n100 AcDbMText\n10 5\n20 6\n40 2\n41 0\n71 7\n72 1\n1 \\C3;12\n11 0\n21 1\n31 0\n");
    const Lines lines = drawn(Scene::of(drawing.database()));
    EXPECT_EQ(lines, Lines{"text 00FF00: <12> at 5,6 along 0,2 up -2,0"});
}
