#include "db/UndoTrial.h"

#include "Drawing.h"
#include "SmallDrawing.h"

/// Sets, bookmarks and states of a drawing's history; what a group holds stands in the tests of changes.

namespace {

class UndoTest : public DrawingTest {
protected:
    UndoTest() { undo().setRecording(true); }
    UndoRecorder& undo() { return database->impl().undo(); }
    void thicken(double to, const wchar_t* name = L"")
    {
        undo().startMark(name);
        Opened<AcDbLine>(*database, 0x80, AcDb::kForWrite)->setThickness(to);
        undo().endMark();
    }
    double thickness() { return Opened<AcDbLine>(*database, 0x80)->thickness(); }
    void draw()
    {
        undo().startMark();
        addEntity(*database, new AcDbPoint(AcGePoint3d(1, 2, 0)));
        undo().endMark();
    }

    std::unique_ptr<AcDbDatabase> database = [this] {
        SmallDrawing drawing;
        drawing.entities = lineTags("80");
        return open(drawing);
    }();
};

TEST_F(UndoTest, groupsBearTheNamesOfTheirMarks)
{
    EXPECT_EQ(undo().undoName(), L"");
    thicken(1, L"LINE");
    thicken(2, L"ERASE");
    EXPECT_EQ(undo().undoName(), L"ERASE");
    undo().undo();
    EXPECT_EQ(undo().undoName(), L"LINE");
    EXPECT_EQ(undo().redoName(), L"ERASE");
}

TEST_F(UndoTest, aSetIsOneGroup)
{
    thicken(1);
    EXPECT_FALSE(undo().endSet(L"SET"));
    undo().beginSet();
    EXPECT_TRUE(undo().isSetBegun());
    thicken(2);
    draw();
    thicken(3);
    EXPECT_TRUE(undo().endSet(L"SET"));
    EXPECT_EQ(undo().undoable(), 2U);
    EXPECT_EQ(undo().undoName(), L"SET");
    undo().undo();
    EXPECT_EQ(thickness(), 1);
    undo().redo();
    EXPECT_EQ(thickness(), 3);

    undo().beginSet();
    EXPECT_TRUE(undo().endSet(L"EMPTY"));
    EXPECT_EQ(undo().undoable(), 2U) << "a set of nothing is no group";
    undo().beginSet();
    thicken(4);
    undo().undo();
    EXPECT_TRUE(undo().isSetBegun());
    undo().undo();
    EXPECT_FALSE(undo().isSetBegun()) << "what was there before it was taken back";
}

TEST_F(UndoTest, bookmarksGoWithWhatLiesBeforeThem)
{
    EXPECT_FALSE(undo().hasBookmark());
    thicken(1);
    undo().placeBookmark();
    EXPECT_TRUE(undo().isAtBookmark());
    thicken(2);
    EXPECT_FALSE(undo().isAtBookmark());
    undo().undo();
    EXPECT_TRUE(undo().isAtBookmark());
    undo().undo();
    EXPECT_FALSE(undo().hasBookmark());
    undo().placeBookmark();
    undo().removeBookmark();
    EXPECT_FALSE(undo().hasBookmark());

    undo().beginSet();
    thicken(3);
    undo().placeBookmark();
    thicken(4);
    undo().endSet(L"SET");
    EXPECT_FALSE(undo().hasBookmark()) << "there is no coming back into a set";
}

TEST_F(UndoTest, aStateIsKnownAgain)
{
    const std::uint64_t first = undo().state();
    thicken(1);
    const std::uint64_t second = undo().state();
    EXPECT_NE(second, first);
    undo().undo();
    EXPECT_EQ(undo().state(), first);
    undo().redo();
    EXPECT_EQ(undo().state(), second);
    undo().undo();
    thicken(5);
    EXPECT_NE(undo().state(), second) << "another change in the same place";
    undo().startMark();
    thicken(6);
    const std::uint64_t within = undo().state();
    thicken(7);
    EXPECT_NE(undo().state(), within) << "the same object in the same group";
    undo().endMark();
}

TEST_F(UndoTest, handlesOfWhatWasTakenBackLeaveNoTrace)
{
    draw();
    const std::string one = saved(*database, "un.dxf");
    draw();
    EXPECT_NE(saved(*database, "deux.dxf"), one);
    undo().undo();
    EXPECT_EQ(saved(*database, "encore.dxf"), one) << "the next free handle among the rest";
    undo().redo();
    EXPECT_EQ(saved(*database, "refait.dxf"), read("deux.dxf"));
}

/// A trial in the middle of a group, with something to be done again behind it.
TEST_F(UndoTest, aTrialLeavesNoTrace)
{
    thicken(1, L"ONE");
    const std::string before = saved(*database, "avant.dxf");
    undo().startMark(L"OPEN");
    Opened<AcDbLine>(*database, 0x80, AcDb::kForWrite)->setThickness(2);
    const std::uint64_t state = undo().state();
    {
        const UndoTrial trial(undo());
        thicken(9, L"TRIED");
        draw();
        EXPECT_EQ(thickness(), 9);
    }
    EXPECT_EQ(thickness(), 2);
    EXPECT_EQ(undo().state(), state);
    EXPECT_EQ(undo().undoName(), L"OPEN");
    Opened<AcDbLine>(*database, 0x80, AcDb::kForWrite)->setThickness(3);
    undo().endMark();
    EXPECT_EQ(undo().undoable(), 2U) << "the group goes on after the trial";
    undo().undo();
    EXPECT_EQ(saved(*database, "apres.dxf"), before);

    {
        const UndoTrial trial(undo());
        thicken(9);
    }
    EXPECT_EQ(undo().redoName(), L"OPEN") << "what can be done again stays";
    undo().redo();
    EXPECT_EQ(thickness(), 3);
}

} // namespace
