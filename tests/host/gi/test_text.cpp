#include "gi/MTextLayout.h"
#include "gi/ShownText.h"
#include "gi/TextMetrics.h"
#include "platform/CodePage.h"

#include "DrawingWithEntities.h"
#include "SceneTest.h"

namespace {

std::string runs(const wchar_t* text)
{
    std::string all;
    for (const ShownRun& run : shownText(text))
        all += "[" + platform::utf8FromWide(run.text) + (run.underlined ? " u" : "") + (run.overlined ? " o" : "") +
               (run.struck ? " k" : "") + "]";
    return all;
}

/// Digits are equally wide: widths of texts made of them are easy to tell.
const double digit = characterWidth(L'0');

MTextLayout::Request request()
{
    MTextLayout::Request plain;
    plain.height = 2.0;
    return plain;
}

} // namespace

TEST(ShownText, controlCodes)
{
    struct Row {
        const wchar_t* text;
        const char* shown;
    };
    constexpr Row rows[] = {
        {L"R+1", "[R+1]"},
        {L"45%%d", "[45°]"},
        {L"%%p0.02", "[±0.02]"},
        {L"%%C300", "[Ø300]"},
        {L"100%%%", "[100%]"},
        {L"100%%%%", "[100%]"},
        {L"50%", "[50%]"},
        {L"%%x", "[%%x]"},
        {L"%%065B", "[AB]"},
        {L"%%176", "[°]"},
        {L"%%31", "[%%31]"},
        {L"%%uNord%%u sud", "[Nord u][ sud]"},
        {L"%%oA%%uB%%oC", "[A o][B u o][C u]"},
        {L"%%kfaux", "[faux k]"},
        {L"\\U+00E9tang", "[étang]"},
        {L"\\U+12", "[\\U+12]"},
        {L"%%u%%u", ""},
        {L"%%", "[%%]"},
        {L"", ""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(runs(row.text), row.shown) << platform::utf8FromWide(row.text);
}

TEST(TextMetrics, widthsAreThoseOfTheFont)
{
    // From the font's own table: 1303 of 2048 units for a digit, capitals 1493 high.
    EXPECT_NEAR(digit, 1303.0 / 1493.0, 1e-12);
    EXPECT_NEAR(textWidth(L"1 M"), (1303.0 + 651.0 + 1767.0) / 1493.0, 1e-12);
    EXPECT_EQ(textWidth(L""), 0.0);
    EXPECT_EQ(characterWidth(L'\u0001'), digit); // shown as a frame
}

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

TEST(MTextLayout, linesAndAttachments)
{
    MTextLayout::Request centered = request();
    centered.attachment = 5; // the middle of both
    const auto runs = MTextLayout(centered).lay(L"12\\P1234");
    ASSERT_EQ(runs.size(), 2U);
    const double distance = 2.0 * 5.0 / 3.0, whole = 2.0 + distance;
    EXPECT_NEAR(runs[0].x, -2 * digit, 1e-9); // two digits of height 2, centred
    EXPECT_NEAR(runs[1].x, -4 * digit, 1e-9);
    EXPECT_NEAR(runs[0].y, whole / 2.0 - 2.0, 1e-9);
    EXPECT_NEAR(runs[1].y, -whole / 2.0, 1e-9);

    MTextLayout::Request bottomRight = request();
    bottomRight.attachment = 9;
    const auto last = MTextLayout(bottomRight).lay(L"12\\P1234");
    EXPECT_NEAR(last[1].x, -8 * digit, 1e-9);
    EXPECT_NEAR(last[1].y, 0.0, 1e-9);
}

TEST(MTextLayout, breaksLinesBetweenWords)
{
    MTextLayout::Request narrow = request();
    narrow.lineWidth = 2.0 * digit * 7.0; // seven digits
    const auto runs = MTextLayout(narrow).lay(L"123 456 78901234 5");
    std::vector<std::wstring> texts;
    for (const auto& run : runs)
        texts.push_back(run.text);
    // "123 456" is six digits and a narrow blank; the long word stays whole on a line of its own.
    EXPECT_EQ(texts, (std::vector<std::wstring>{L"123 456", L"78901234", L"5"}));
}

TEST(MTextLayout, looksOfRuns)
{
    const auto runs = MTextLayout(request()).lay(L"a{\\C1;b\\H0.5x;c}d\\H3;\\W2;\\Le\\lf\\c255;g");
    ASSERT_EQ(runs.size(), 7U);
    EXPECT_EQ(runs[0].color, -1);
    EXPECT_EQ(runs[1].color, 1);
    EXPECT_EQ(runs[1].height, 2.0);
    EXPECT_EQ(runs[2].height, 1.0);
    EXPECT_EQ(runs[3].color, -1); // the brace gave the former look back
    EXPECT_EQ(runs[3].height, 2.0);
    EXPECT_EQ(runs[4].height, 3.0);
    EXPECT_EQ(runs[4].widthFactor, 2.0);
    EXPECT_TRUE(runs[4].underlined);
    EXPECT_FALSE(runs[5].underlined);
    EXPECT_EQ(runs[6].trueColor, 0xFF0000); // 255 is red: the lowest byte
    EXPECT_NEAR(runs[5].x - runs[4].x, 6.0 * characterWidth(L'e'), 1e-9);
}

TEST(MTextLayout, stackedAndSpecialCharacters)
{
    const auto stacked = MTextLayout(request()).lay(L"\\S1/24;");
    ASSERT_EQ(stacked.size(), 2U);
    EXPECT_EQ(stacked[0].text, L"1");
    EXPECT_TRUE(stacked[0].underlined);
    EXPECT_GT(stacked[0].y, stacked[1].y);
    struct Row {
        const wchar_t *contents, *shown;
    };
    constexpr Row rows[] = {{L"3\\#", L"3\\#"},     {L"\\\\ \\{ \\}", L"\\ { }"},
                            {L"%%d%%p%%c", L"°±Ø"}, {L"\\U+00B2", L"²"},
                            {L"\\S1#2;", L"1/2"},   {L"\\fArial|b0;x", L"x"},
                            {L"\\pi0,l5;y", L"y"},  {L"z\\", L"z\\"},
                            {L"}}a{", L"a"},        {L"\\C1", L""},
                            {L"\\A1;20%", L"20%"}};
    for (const Row& row : rows) {
        std::wstring shown;
        for (const auto& run : MTextLayout(request()).lay(row.contents))
            shown += run.text;
        EXPECT_EQ(shown, row.shown) << platform::utf8FromWide(row.contents);
    }
}

TEST(MText, standsTurnedAtItsPlace)
{
    DrawingWithEntities drawing(
        "0 MTEXT\n100 AcDbMText\n10 5\n20 6\n40 2\n41 0\n71 7\n72 1\n1 \\C3;12\n11 0\n21 1\n31 0\n");
    const Lines lines = drawn(Scene::of(drawing.database()));
    EXPECT_EQ(lines, Lines{"text 00FF00: <12> at 5,6 along 0,2 up -2,0"});
}
