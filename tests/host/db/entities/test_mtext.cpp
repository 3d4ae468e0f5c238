#include "text/TextMetrics.h"

#include "acutmem.h"
#include "dbents.h"
#include "dbmtext.h"
#include "DrawingWithEntities.h"
#include "gemat3d.h"
#include "Near.h"

namespace {
/// Digits are equally wide.
const double digit = characterWidth(L'0');
} // namespace

TEST(MText, extentsFollowTheAttachment)
{
    AcDbMText text;
    text.setContents(L"1234\\P12"); // two lines of height 3, 3 + 5 high
    text.setTextHeight(3.0);
    text.setLocation({100, 200, 7});
    const double wide = 12.0 * digit;
    struct Row {
        AcDbMText::AttachmentPoint attachment;
        AcGePoint3d min;
    };
    for (const Row& row :
         {Row{AcDbMText::kTopLeft, {100, 192, 7}}, Row{AcDbMText::kMiddleCenter, {100 - wide / 2, 196, 7}},
          Row{AcDbMText::kBottomRight, {100 - wide, 200, 7}}}) {
        text.setAttachment(row.attachment);
        expectBox(text, row.min, row.min + AcGeVector3d(wide, 8, 0));
    }
    text.setAttachment(AcDbMText::kTopLeft);
    text.setRotation(pi / 2);
    expectBox(text, {100, 200, 7}, {108, 200 + wide, 7});
    text.transformBy(AcGeMatrix3d::rotation(-pi / 2, AcGeVector3d::kZAxis, {100, 200, 7}));
    expectBox(text, {100, 192, 7}, {100 + wide, 200, 7});
    EXPECT_NEAR(text.rotation(), 0.0, 1e-12);
}

/// What a multi-line text explodes into stands where it stood: same box, a part a run, in the look of the run.
TEST(MText, explodesAsItIsShown)
{
    AcDbMText text;
    text.setContents(L"un deux {\\C1;trois} \\S1\\;2/3; quatre \\c255;\\Lcinq");
    text.setTextHeight(2.0);
    text.setWidth(15.0);
    text.setLocation({100, 200, 7});
    AcDbExtents before, after;
    ASSERT_EQ(text.getGeomExtents(before), Acad::eOk);
    AcDbVoidPtrArray held;
    ASSERT_EQ(text.explode(held), Acad::eOk);
    std::wstring shown;
    std::vector<std::unique_ptr<AcDbText>> parts;
    for (void* part : held) {
        parts.emplace_back(static_cast<AcDbText*>(static_cast<AcDbEntity*>(part)));
        shown += parts.back()->textStringConst() + std::wstring(L"|");
        AcDbExtents own;
        ASSERT_EQ(parts.back()->getGeomExtents(own), Acad::eOk);
        after.addExt(own);
    }
    EXPECT_EQ(shown, L"un deux|trois|%%u1;2|3|quatre|%%ucinq|");
    ASSERT_EQ(parts.size(), 6U);
    EXPECT_EQ(parts[1]->colorIndex(), 1);
    EXPECT_EQ(parts[4]->colorIndex(), 256);
    EXPECT_EQ(parts[5]->trueColor(), 0xFF0000);
    EXPECT_LT(parts[1]->position().y, parts[0]->position().y); // on the second line
    expectNear(after.minPoint(), before.minPoint(), 1e-9);
    expectNear(after.maxPoint(), before.maxPoint(), 1e-9);
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
