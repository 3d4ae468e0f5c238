#include "db/entities/MTextLines.h"

#include "acutmem.h"
#include "dbmtext.h"
#include "DrawingWithEntities.h"
#include "gemat3d.h"
#include "Near.h"

TEST(MText, visibleLines)
{
    struct Row {
        const wchar_t* contents;
        std::vector<std::wstring> lines;
    };
    const Row rows[] = {
        {L"altitude 45.27", {L"altitude 45.27"}},
        {L"{\\fArial|b1;Bâtiment\\Pexistant}", {L"Bâtiment", L"existant"}},
        {L"\\A1;\\C1;{\\H0.7x;\\S1^2;} m", {L"1/2 m"}},
        {L"a\\~b\\\\c\\{d\\}", {L"a\u00A0b\\c{d}"}},
        {L"45%%d %%c12 %%p3 100%", {L"45° Ø12 ±3 100%"}},
        {L"\\U+00C9cole \\U+00", {L"École \\U+00"}},
        {L"\\LA\\l \\Ob\\o", {L"A b"}},
        {L"fin\\", {L"fin\\"}},
        {L"\\H3", {L""}}, // cut short
        {L"", {L""}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(visibleLines(row.contents), row.lines);
}

TEST(MText, extentsFollowTheAttachment)
{
    AcDbMText text;
    text.setContents(L"1234\\P12"); // two lines of height 3: 12 wide, 3 + 5 high
    text.setTextHeight(3.0);
    text.setLocation({100, 200, 7});
    struct Row {
        AcDbMText::AttachmentPoint attachment;
        AcGePoint3d min;
    };
    for (const Row& row : {Row{AcDbMText::kTopLeft, {100, 192, 7}}, Row{AcDbMText::kMiddleCenter, {94, 196, 7}},
                           Row{AcDbMText::kBottomRight, {88, 200, 7}}}) {
        text.setAttachment(row.attachment);
        expectBox(text, row.min, row.min + AcGeVector3d(12, 8, 0));
    }
    text.setAttachment(AcDbMText::kTopLeft);
    text.setRotation(pi / 2);
    expectBox(text, {100, 200, 7}, {108, 212, 7});
    text.transformBy(AcGeMatrix3d::rotation(-pi / 2, AcGeVector3d::kZAxis, {100, 200, 7}));
    expectBox(text, {100, 192, 7}, {112, 200, 7});
    EXPECT_NEAR(text.rotation(), 0.0, 1e-12);
}

TEST(MText, fragmentsAreShownUntilTheCallerStops)
{
    AcDbMText text;
    text.setContents(L"un\\P\\Ptrois\\Pquatre");
    std::wstring shown;
    text.explodeFragments(
        [](AcDbMTextFragment* fragment, void* param) {
            auto& all = *static_cast<std::wstring*>(param);
            all += fragment->text;
            return all.ends_with(L"trois") ? 0 : 1;
        },
        &shown);
    EXPECT_EQ(shown, L"untrois");
    ACHAR* plain = text.text();
    EXPECT_STREQ(plain, L"un\n\ntrois\nquatre");
    acutDelString(plain);
}

TEST(MText, chunksCutInsideALetterAreJoined)
{
    // C3 A9 is é in the encoding of the drawing; the file cuts between the two bytes.
    DrawingWithEntities drawing("0 MTEXT\n100 AcDbMText\n10 0\n20 0\n30 0\n40 2\n71 1\n3 \xC3\n3 \xA9t\xC3\n1 \xA9\n");
    const auto text = drawing.open<AcDbMText>(0);
    ASSERT_TRUE(text.object());
    ACHAR* contents = text->contents();
    EXPECT_STREQ(contents, L"\u00E9t\u00E9");
    acutDelString(contents);
    const std::wstring longer(600, L'a');
    text->setContents(longer.c_str());
    EXPECT_EQ(drawing.written(0), "100 AcDbMText\n10 0\n20 0\n30 0\n40 2\n71 1\n3 " + std::string(250, 'a') + "\n3 " +
                                      std::string(250, 'a') + "\n1 " + std::string(100, 'a') + "\n");
}
