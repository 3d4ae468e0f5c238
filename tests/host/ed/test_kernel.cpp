#include <numbers>

#include <gtest/gtest.h>

#include "ap/DocumentList.h"
#include "db/DatabaseImpl.h"
#include "ed/CommandRunner.h"
#include "ed/DrawingChanges.h"
#include "ed/Kernel.h"
#include "lisp/LispText.h"
#include "rx/Console.h"

#include "acedads.h"
#include "acutmem.h"
#include "Drawing.h"
#include "TestFolder.h"

namespace {

AcDbDatabase& drawing()
{
    return *curDoc()->database();
}

void appendPoint(double x)
{
    addEntity(drawing(), new AcDbPoint(AcGePoint3d(x, 0, 0)));
}

void undoMark(const wchar_t* method)
{
    std::wstring name = method;
    LPOLESTR names[] = {name.data()};
    DISPID id = 0;
    IDispatch* automation = curDoc()->GetIDispatch(false);
    ASSERT_EQ(automation->GetIDsOfNames(IID_NULL, names, 1, 0, &id), S_OK);
    ASSERT_EQ(automation->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr), S_OK);
}

class WholeKernel : public testing::Test {
protected:
    void SetUp() override { DocumentList::instance().create(); }
    void TearDown() override
    {
        DocumentList::instance().closeAll();
        acedRegCmds->removeGroup(L"TEST");
    }
    static CommandOutcome run(AcRxFunctionPtr body, Adesk::Int32 flags = ACRX_CMD_MODAL)
    {
        acedRegCmds->removeGroup(L"TEST");
        EXPECT_EQ(acedRegCmds->addCommand(L"TEST", L"CORPS", L"CORPS", flags, body), Acad::eOk);
        return CommandRunner::instance().run(L"CORPS");
    }
    static std::size_t pointCount() { return entitiesOf(drawing().currentSpaceId()).size(); }
    static std::wstring shown(const wchar_t* name)
    {
        resbuf value{};
        if (acedGetVar(name, &value) != RTNORM)
            return L"refused";
        const std::wstring text = lispText(&value);
        if (value.restype == RTSTR)
            acutDelString(value.resval.rstring);
        return text;
    }
    static int set(const wchar_t* name, resbuf* value)
    {
        const int answer = acedSetVar(name, value);
        acutRelRb(value);
        return answer;
    }

    Kernel kernel;
};

TEST_F(WholeKernel, aCommandIsOneStepWhateverMarksItSets)
{
    const CommandOutcome outcome = run([] {
        appendPoint(1);
        undoMark(L"StartUndoMark");
        appendPoint(2);
        undoMark(L"EndUndoMark");
        appendPoint(3);
    });
    EXPECT_EQ(outcome.failure, L"");
    EXPECT_EQ(outcome.leftOpen, std::vector<std::wstring>{});
    run([] { appendPoint(4); });
    EXPECT_EQ(pointCount(), 4U);
    UndoRecorder& history = drawing().impl().undo();
    EXPECT_TRUE(history.undo());
    EXPECT_EQ(pointCount(), 3U);
    EXPECT_TRUE(history.undo());
    EXPECT_EQ(pointCount(), 0U);
    EXPECT_TRUE(history.redo());
    EXPECT_EQ(pointCount(), 3U);
}

TEST_F(WholeKernel, anObjectLeftOpenIsToldAndClosed)
{
    const CommandOutcome outcome = run([] {
        AcDbObjectPointer<AcDbBlockTableRecord>(drawing().currentSpaceId(), AcDb::kForWrite)
            ->appendAcDbEntity(new AcDbPoint(AcGePoint3d(1, 0, 0)));
    });
    EXPECT_EQ(outcome.leftOpen.size(), 1U);
    EXPECT_EQ(run([] {}).leftOpen.size(), 0U);
    EXPECT_EQ(pointCount(), 1U);
}

TEST_F(WholeKernel, theWorkingDatabaseIsTheCurrentDrawing)
{
    AcApDocument* first = curDoc();
    DocumentList::instance().create();
    EXPECT_NE(curDoc(), first);
    EXPECT_EQ(acDocManager->document(&drawing()), curDoc());
    run([] { appendPoint(1); });
    EXPECT_EQ(acDocManager->setCurDocument(first), Acad::eOk);
    EXPECT_EQ(pointCount(), 0U);
}

TEST_F(WholeKernel, variablesOfTheDrawingStandInItsHeader)
{
    EXPECT_EQ(shown(L"CLAYER"), L"\"0\"");
    EXPECT_EQ(set(L"CLAYER", acutBuildList(RTSTR, L"ABSENT", 0)), RTERROR);
    addLayer(drawing(), L"Bornes");
    EXPECT_EQ(set(L"CLAYER", acutBuildList(RTSTR, L"BORNES", 0)), RTNORM);
    EXPECT_EQ(shown(L"CLAYER"), L"\"Bornes\"");

    EXPECT_EQ(set(L"PDMODE", acutBuildList(RTSHORT, 34, 0)), RTNORM);
    EXPECT_EQ(drawing().impl().header().integer("$PDMODE", 0), 34);
    EXPECT_EQ(shown(L"PDMODE"), L"34");
    EXPECT_EQ(set(L"PDSIZE", acutBuildList(RTSHORT, 2, 0)), RTNORM);
    EXPECT_EQ(shown(L"PDSIZE"), L"2.0");
    EXPECT_EQ(set(L"TEXTSTYLE", acutBuildList(RTSTR, L"absent", 0)), RTERROR);
    EXPECT_EQ(set(L"TEXTSTYLE", acutBuildList(RTSTR, L"STANDARD", 0)), RTNORM);
    EXPECT_EQ(shown(L"TEXTSTYLE"), L"\"Standard\"");

    // The file has degrees, the variable radians.
    EXPECT_EQ(set(L"ANGBASE", acutBuildList(RTREAL, std::numbers::pi / 2, 0)), RTNORM);
    EXPECT_DOUBLE_EQ(drawing().impl().header().real("$ANGBASE", 0), 90.0);
    EXPECT_EQ(shown(L"ANGBASE"), L"1.5708");

    EXPECT_EQ(set(L"EXTMIN", acutBuildList(RTREAL, 1.0, 0)), RTERROR);
    for (const std::wstring& name : SystemVariables::names())
        EXPECT_NE(shown(name.c_str()), L"refused") << testing::PrintToString(name);
}

/// Changes of the drawing and of what modules keep beside it.
TEST_F(WholeKernel, tellsWhatAFileLacks)
{
    auto& changes = DrawingChanges::instance();
    Document& document = *DocumentList::instance().current();
    std::uint64_t saved = 7, drafts = 1; // of modules
    changes.setModuleStates({[&] { return saved; }, [&] { return drafts; }});
    changes.setSaved(document);
    EXPECT_FALSE(changes.areUnsaved(document));
    run([] { appendPoint(1); });
    EXPECT_TRUE(changes.areUnsaved(document));
    drawing().impl().undo().undo();
    EXPECT_FALSE(changes.areUnsaved(document)) << "taken back";
    const std::uint64_t state = changes.state(document);
    drafts = 2;
    EXPECT_FALSE(changes.areUnsaved(document)) << "no file holds drafts";
    EXPECT_NE(changes.state(document), state) << "a recovery copy does";
    saved = 8;
    EXPECT_TRUE(changes.areUnsaved(document));

    const TestFolder folder;
    EXPECT_EQ(DrawingChanges::writeCopy(document, folder / "copie.dxf"), std::nullopt);
    EXPECT_TRUE(changes.areUnsaved(document)) << "a copy is not the drawing's file";
    EXPECT_FALSE(document.isNamedDrawing());
    EXPECT_TRUE(DrawingChanges::writeCopy(document, folder / "absent" / "copie.dxf").has_value());

    changes.setNeverSaved(document);
    EXPECT_EQ(DocumentList::instance().saveAs(document, (folder / "plan.dxf").wstring()), std::nullopt);
    EXPECT_FALSE(changes.areUnsaved(document));
    changes.setModuleStates({});
}

} // namespace
