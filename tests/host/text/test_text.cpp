#include <gtest/gtest.h>

#include "platform/CodePage.h"
#include "text/MTextLayout.h"
#include "text/ShownText.h"
#include "text/TextMetrics.h"

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

TEST(MTextLayout, linesAndAttachments)
{
    MTextLayout::Request centered = request();
    centered.attachment = 5; // the middle of both
    const auto runs = MTextLayout(L"12\\P1234", centered).runs;
    ASSERT_EQ(runs.size(), 2U);
    const double distance = 2.0 * 5.0 / 3.0, whole = 2.0 + distance;
    EXPECT_NEAR(runs[0].x, -2 * digit, 1e-9); // two digits of height 2, centred
    EXPECT_NEAR(runs[1].x, -4 * digit, 1e-9);
    EXPECT_NEAR(runs[0].y, whole / 2.0 - 2.0, 1e-9);
    EXPECT_NEAR(runs[1].y, -whole / 2.0, 1e-9);

    MTextLayout::Request bottomRight = request();
    bottomRight.attachment = 9;
    const auto last = MTextLayout(L"12\\P1234", bottomRight).runs;
    EXPECT_NEAR(last[1].x, -8 * digit, 1e-9);
    EXPECT_NEAR(last[1].y, 0.0, 1e-9);
}

TEST(MTextLayout, breaksLinesBetweenWords)
{
    MTextLayout::Request narrow = request();
    narrow.lineWidth = 2.0 * digit * 7.0; // seven digits
    const auto runs = MTextLayout(L"123 456 78901234 5", narrow).runs;
    std::vector<std::wstring> texts;
    for (const auto& run : runs)
        texts.push_back(run.text);
    // "123 456" is six digits and a narrow blank; the long word stays whole on a line of its own.
    EXPECT_EQ(texts, (std::vector<std::wstring>{L"123 456", L"78901234", L"5"}));
}

TEST(MTextLayout, looksOfRuns)
{
    const auto runs = MTextLayout(L"a{\\C1;b\\H0.5x;c}d\\H3;\\W2;\\Le\\lf\\c255;g", request()).runs;
    ASSERT_EQ(runs.size(), 7U);
    EXPECT_EQ(runs[0].look.color, -1);
    EXPECT_EQ(runs[1].look.color, 1);
    EXPECT_EQ(runs[1].look.height, 2.0);
    EXPECT_EQ(runs[2].look.height, 1.0);
    EXPECT_EQ(runs[3].look.color, -1); // the brace gave the former look back
    EXPECT_EQ(runs[3].look.height, 2.0);
    EXPECT_EQ(runs[4].look.height, 3.0);
    EXPECT_EQ(runs[4].look.widthFactor, 2.0);
    EXPECT_TRUE(runs[4].look.underlined);
    EXPECT_FALSE(runs[5].look.underlined);
    EXPECT_EQ(runs[6].look.trueColor, 0xFF0000); // 255 is red: the lowest byte
    EXPECT_NEAR(runs[5].x - runs[4].x, 6.0 * characterWidth(L'e'), 1e-9);
}

TEST(MTextLayout, stackedAndSpecialCharacters)
{
    const auto stacked = MTextLayout(L"\\S1/24;", request()).runs;
    ASSERT_EQ(stacked.size(), 2U);
    EXPECT_EQ(stacked[0].text, L"1");
    EXPECT_TRUE(stacked[0].look.underlined);
    EXPECT_GT(stacked[0].y, stacked[1].y);
    struct Row {
        const wchar_t *contents, *shown;
    };
    constexpr Row rows[] = {{L"3\\#", L"3\\#"},     {L"\\\\ \\{ \\}", L"\\ { }"},
                            {L"%%d%%p%%c", L"°±Ø"}, {L"\\U+00B2", L"²"},
                            {L"\\S1#2;", L"1/2"},   {L"\\S1\\;2/3;", L"1;23"},
                            {L"\\S1\\/2;", L"1/2"}, {L"\\Sa/b/c;d", L"ab/cd"},
                            {L"\\S1/2", L"12"},     {L"\\S;x", L"x"},
                            {L"%%065%%c", L"AØ"},   {L"\\fArial|b0;x", L"x"},
                            {L"\\pi0,l5;y", L"y"},  {L"z\\", L"z\\"},
                            {L"}}a{", L"a"},        {L"\\C1", L""},
                            {L"\\A1;20%", L"20%"}};
    for (const Row& row : rows) {
        std::wstring shown;
        for (const auto& run : MTextLayout(row.contents, request()).runs)
            shown += run.text;
        EXPECT_EQ(shown, row.shown) << platform::utf8FromWide(row.contents);
    }
}

TEST(MTextLayout, isBoundedByItsRuns)
{
    MTextLayout::Request narrow = request();
    narrow.lineWidth = 2.0 * digit * 7.0;
    narrow.attachment = 3; // top right
    const MTextLayout three(L"123 456 78901234 5", narrow);
    EXPECT_NEAR(three.left, -2.0 * digit * 8.0, 1e-9); // the long word passes the width, to the left
    EXPECT_NEAR(three.right, 0.0, 1e-9);
    EXPECT_NEAR(three.top, 0.0, 1e-9);
    EXPECT_NEAR(three.bottom, -2.0 - 2.0 * 2.0 * 5.0 / 3.0, 1e-9);                  // three lines
    EXPECT_NEAR(MTextLayout(L"\\S1/2;", request()).bottom, -2.0 * 1.35, 1e-9);      // the lower text hangs
    EXPECT_NEAR(MTextLayout(L"\\Q45;1", request()).right, 2.0 * digit + 2.0, 1e-9); // tops lean over
    EXPECT_TRUE(MTextLayout(L"\\C1;\\P", request()).isEmpty());
}

TEST(MTextReader, shownContents)
{
    struct Row {
        const wchar_t *contents, *shown;
    };
    constexpr Row rows[] = {
        {L"altitude 45.27", L"altitude 45.27"},
        {L"{\\fArial|b1;Bâtiment\\Pexistant}", L"Bâtiment\nexistant"},
        {L"\\A1;\\C1;{\\H0.7x;\\S1^2;} m", L"1/2 m"},
        {L"a\\~b\\\\c\\{d\\}", L"a\u00A0b\\c{d}"},
        {L"45%%d %%c12 %%p3 100%", L"45° Ø12 ±3 100%"},
        {L"\\U+00C9cole \\U+00", L"École \\U+00"},
        {L"\\LA\\l \\Ob\\o", L"A b"},
        {L"fin\\", L"fin\\"},
        {L"\\H3", L""}, // cut short
        {L"un\\P\\Ptrois", L"un\n\ntrois"},
        {L"", L""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(shownContents(row.contents), row.shown) << platform::utf8FromWide(row.contents);
}
