#include <algorithm>

#include <gtest/gtest.h>

#include "ap/DocumentList.h"
#include "ed/SystemVariables.h"
#include "lisp/LispText.h"

#include "acedads.h"
#include "acutmem.h"
#include "FakeDatabase.h"

namespace {

using Answer = SystemVariables::Answer;

/// Keeps CLAYER only, and refuses a layer that is not there.
class LayerOfDrawing : public DrawingVariables {
public:
    std::optional<VariableValue> value(const AcDbDatabase&, const DrawingVariable& variable) override
    {
        return variable.kept == DrawingValue::layer ? std::optional<VariableValue>(layer) : std::nullopt;
    }
    bool setValue(AcDbDatabase&, const DrawingVariable& variable, const VariableValue& value) override
    {
        const auto wanted = std::get<std::wstring>(value);
        if (variable.kept != DrawingValue::layer || wanted == L"absent")
            return false;
        layer = wanted;
        return true;
    }
    std::wstring layer = L"TOPO";
};

class Variables : public testing::Test {
protected:
    void SetUp() override
    {
        DocumentList::instance().open(L"/releves/chantier.v2.dxf");
        variables.setDrawingVariables(&drawing);
    }
    void TearDown() override
    {
        variables.setDrawingVariables(nullptr);
        DocumentList::instance().closeAll();
    }
    /// The value as AutoLISP shows it.
    static std::wstring shown(const wchar_t* name)
    {
        resbuf result{};
        if (acedGetVar(name, &result) != RTNORM)
            return L"refused";
        const std::wstring text = lispText(&result);
        if (result.restype == RTSTR)
            acutDelString(result.resval.rstring);
        return text;
    }

    LayerOfDrawing drawing;
    SystemVariables& variables = SystemVariables::instance();
};

TEST_F(Variables, areReadWithTheirTypes)
{
    struct Row {
        const wchar_t* name;
        const wchar_t* value;
    };
    const Row rows[] = {
        {L"DWGPREFIX", L"\"/releves/\""},
        {L"dwgname", L"\"chantier.v2.dxf\""},
        {L"DWGTITLED", L"1"},
        {L"VIEWSIZE", L"297.0"},
        {L"VIEWCTR", L"(210.0 148.5 0.0)"},
        {L"SCREENSIZE", L"(1280.0 720.0)"},
        {L"CMDECHO", L"1"},
        {L"CMDNAMES", L"\"\""},
        {L"CLAYER", L"\"TOPO\""},
        {L"PDMODE", L"0"},
        {L"ABSENTE", L"refused"},
        {L"", L"refused"},
        {nullptr, L"refused"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(shown(row.name), row.value) << testing::PrintToString(row.name);
    EXPECT_EQ(acedGetVar(L"CMDECHO", nullptr), RTERROR);

    variables.setDrawingVariables(nullptr);
    EXPECT_EQ(shown(L"CLAYER"), L"refused");
    DocumentList::instance().closeAll();
    EXPECT_EQ(shown(L"DWGNAME"), L"refused");
    EXPECT_EQ(shown(L"CMDECHO"), L"1");
}

TEST_F(Variables, areSetWithinTheirTypeAndRange)
{
    struct Row {
        const char* name;
        const wchar_t* variable;
        VariableValue value;
        Answer answer;
        const wchar_t* after;
    };
    const Row rows[] = {
        {"integer", L"CMDECHO", short{0}, Answer::done, L"0"},
        {"out of range", L"cmdecho", short{2}, Answer::refused, L"0"},
        {"real for an integer", L"CMDECHO", 1.0, Answer::wrongType, L"0"},
        {"text for an integer", L"CMDECHO", std::wstring(L"1"), Answer::wrongType, L"0"},
        {"read only", L"VIEWSIZE", 10.0, Answer::readOnly, L"297.0"},
        {"worked out", L"DWGNAME", std::wstring(L"x"), Answer::readOnly, L"\"chantier.v2.dxf\""},
        {"plane point for one in space", L"LASTPOINT", AcGePoint2d(1, 2), Answer::done, L"(1.0 2.0 0.0)"},
        {"text", L"USERS1", std::wstring(L"été"), Answer::done, L"\"été\""},
        {"in the drawing", L"CLAYER", std::wstring(L"BORNES"), Answer::done, L"\"BORNES\""},
        {"refused by the drawing", L"CLAYER", std::wstring(L"absent"), Answer::refused, L"\"BORNES\""},
        {"not known", L"ABSENTE", short{1}, Answer::unknown, L"refused"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(variables.set(row.variable, row.value), row.answer) << row.name;
        EXPECT_EQ(shown(row.variable), row.after) << row.name;
    }
    variables.set(L"CMDECHO", short{1});

    // The host itself sets the view; each document has its own.
    EXPECT_EQ(variables.assign(L"VIEWSIZE", short{50}), Answer::done);
    EXPECT_EQ(variables.assign(L"SCREENSIZE", AcGePoint3d(800, 600, 0)), Answer::done);
    EXPECT_EQ(variables.assign(L"DWGNAME", std::wstring(L"x")), Answer::readOnly);
    EXPECT_EQ(shown(L"VIEWSIZE"), L"50.0");
    EXPECT_EQ(shown(L"SCREENSIZE"), L"(800.0 600.0)");
    DocumentList::instance().create();
    EXPECT_EQ(shown(L"VIEWSIZE"), L"297.0");
    EXPECT_EQ(shown(L"DWGTITLED"), L"0");
}

TEST_F(Variables, areSetByResultBuffers)
{
    resbuf value{};
    value.restype = RTLONG;
    value.resval.rlong = 64;
    EXPECT_EQ(acedSetVar(L"OSMODE", &value), RTNORM);
    EXPECT_EQ(shown(L"OSMODE"), L"64");
    value.resval.rlong = 70000;
    EXPECT_EQ(acedSetVar(L"OSMODE", &value), RTERROR);
    value.restype = RTNIL;
    EXPECT_EQ(acedSetVar(L"OSMODE", &value), RTERROR);
    EXPECT_EQ(acedSetVar(L"OSMODE", nullptr), RTERROR);
    EXPECT_EQ(acedSetVar(nullptr, &value), RTERROR);
    value.restype = RTREAL;
    value.resval.rreal = 1.0;
    EXPECT_EQ(acedSetVar(L"VIEWSIZE", &value), RTERROR);
    variables.set(L"OSMODE", short{4133});
}

TEST_F(Variables, namesAreInOrderAndOnce)
{
    const auto names = SystemVariables::names();
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
    EXPECT_EQ(std::adjacent_find(names.begin(), names.end()), names.end());
}

} // namespace
