#include "db/DatabaseImpl.h"
#include "platform/CodePage.h"

#include "CommandTest.h"

/// INSERT and EXPLODE, with a block that comes from a file: a circle about its base, and two attributes.

namespace {

class BlockCommands : public CommandTest {
protected:
    BlockCommands() { write("borne.dxf", contents(VELA_SOURCE_DIR "/tests/host/commands/borne.dxf")); }
    std::wstring path() const { return platform::wideFromUtf8(file("borne").string()); }
};

using Texts = std::vector<std::string>;

TEST_F(BlockCommands, insertAFileThenItsBlock)
{
    const std::string before = bytes();
    typed(L"INSERER | " + path() + L" | 10,20 | 2 |  | 90 | 101 | 45.20");
    EXPECT_EQ(entities(), Texts({"INSERT borne 10,20 e2;2 r90 MAT=101@10,24 ALT=45.20@14,24"}));
    typed(L"I |  | 0,0 |  |  |  |  | "); // the former block, and what is usual for all else
    EXPECT_EQ(entities()[1], "INSERT borne 0,0 MAT=P?@2,0 ALT=@2,-2");
    typed(L"ATTREQ | 0 | I | borne | 5,5 | XYZ | 1 | 2 | 3 | 0 | ATTREQ | 1");
    EXPECT_EQ(entities()[2], "INSERT borne 5,5 e1;2 MAT=P?@7,5 ALT=@7,1");
    typed(L"ANNULER | 100");
    EXPECT_EQ(bytes(), before);
}

TEST_F(BlockCommands, insertUnderAnotherName)
{
    typed(L"I | repere=" + path() + L" | 0,0 |  |  |  |  | ");
    EXPECT_EQ(entities(), Texts({"INSERT repere 0,0 MAT=P?@2,0 ALT=@2,-2"}));
}

TEST_F(BlockCommands, whatIsNotThereIsTold)
{
    typed(L"I | rien");
    EXPECT_NE(printed().find(L"Ni bloc ni fichier de ce nom : « rien »."), std::wstring::npos);
    write("faux.dxf", "ceci n'est pas un dessin");
    typed(L"I | " + platform::wideFromUtf8(file("faux.dxf").string()));
    EXPECT_NE(printed().find(L"faux.dxf"), std::wstring::npos);
    EXPECT_EQ(entities(), Texts());
    typed(L"I | ? | ");
    EXPECT_NE(printed().find(L"0 bloc dans le dessin."), std::wstring::npos);
}

TEST_F(BlockCommands, explodingKeepsTheValues)
{
    typed(L"I | " + path() + L" | 10,0 |  |  |  | 101 | 45.20");
    const std::string before = bytes();
    typed(L"DECOMPOS | _L | ");
    EXPECT_EQ(entities(), Texts({"CIRCLE 10,0 r1", "TEXT 101 12,0 h1", "TEXT 45.20 12,-2 h1 invisible"}));
    typed(L"U");
    EXPECT_EQ(bytes(), before);
    typed(L"CO | _L |  | 0,0 | 100,0 | ");
    EXPECT_EQ(entities()[1], "INSERT borne 110,0 MAT=101@112,0 ALT=45.20@112,-2")
        << "copies take their attributes along";
}

TEST_F(BlockCommands, whatWouldLieBeyondAllNumbersStaysWhole)
{
    typed(LR"((progn (entmake '((0 . "MTEXT") (100 . "AcDbEntity") (100 . "AcDbMText") (10 0.0 0.0 0.0) (40 . 1e308)
(41 . 0.0) (71 . 1) (1 . "a\\Pb")))))");
    const Texts drawn = entities();
    ASSERT_EQ(drawn.size(), 1);
    typed(L"DECOMPOS | _L | ");
    EXPECT_EQ(entities(), drawn);
}

/// A dimension as files have it: a block *D1 in world coordinates, here a line from 0,0 to 10,0.
TEST_F(BlockCommands, dimensionsTurnWithTheirBlock)
{
    typed(LR"((progn
(entmake '((0 . "BLOCK") (2 . "*D1") (70 . 1) (10 0.0 0.0 0.0)))
(entmake '((0 . "LINE") (8 . "0") (10 0.0 0.0 0.0) (11 10.0 0.0 0.0)))
(entmake '((0 . "ENDBLK")))
(entmake '((0 . "DIMENSION") (100 . "AcDbEntity") (8 . "0") (100 . "AcDbDimension") (2 . "*D1") (10 10.0 0.0 0.0)
(11 5.0 0.0 0.0) (70 . 33) (100 . "AcDbAlignedDimension") (13 0.0 0.0 0.0) (14 10.0 0.0 0.0)))))");
    ASSERT_EQ(entities(), Texts({"AcDbAlignedDimension 0,0..10,0"}));
    const std::string before = bytes();
    struct Row {
        const wchar_t* typed;
        const char* box;
    };
    const Row rows[] = {
        {L"ROTATION | _L |  | 0,0 | 90", "0,0..0,10"},
        {L"DEPLACER | _L |  | 0,0 | 5,5", "5,5..15,5"},
        {L"DEPLACER | _L |  | 0,0 | 5,5 | RO | _L |  | 5,5 | 90", "5,5..5,15"},
        {L"ECHELLE | _L |  | 10,0 | 2", "-10,0..10,0"},
        {L"MIROIR | _L |  | 0,-1 | 5,-1 | O", "0,-2..10,-2"},
        {L"ROTATION | _L |  | 0,0 | C | 90 | E | 10,0 | ", "0,0..0,10"},
        {L"RO | _L |  | 0,0 | 90 | X | _L | ", nullptr},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(platform::utf8FromWide(row.typed));
        typed(row.typed);
        EXPECT_EQ(entities(),
                  row.box ? Texts({"AcDbAlignedDimension " + std::string(row.box)}) : Texts({"LINE 0,0 0,10"}));
        while (bytes() != before && drawing().impl().undo().undoable() > 1)
            typed(L"U");
        EXPECT_EQ(bytes(), before);
    }
}

TEST_F(BlockCommands, scaledUnevenly)
{
    typed(L"I | " + path() + L" | 0,0 | XYZ | 2 | 1 | 1 |  | a | b | X | _L | ");
    EXPECT_EQ(entities()[0], "ELLIPSE 0,0");
}

} // namespace
