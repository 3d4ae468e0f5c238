#include <functional>
#include <map>
#include <stdexcept>

#include <gtest/gtest.h>

#include "../rx/moduleTalk.h"
#include "ap/DocumentList.h"
#include "lisp/LispCall.h"
#include "lisp/LispFunctionTable.h"
#include "lisp/LispText.h"
#include "platform/CodePage.h"
#include "rx/ResbufPool.h"

#include "acedads.h"
#include "FakeDatabase.h"

namespace {

/// What the module does at a message, as "Temoin 5".
std::map<std::string, std::function<void()>> actions;

} // namespace

extern "C" __attribute__((visibility("default"))) AcRx::AppRetCode moduleHeard(const char* module,
                                                                               AcRx::AppMsgCode message, void* packet)
{
    if (message == AcRx::kInitAppMsg)
        acrxDynamicLinker->unlockApplication(packet);
    const auto action = actions.find(std::string(module) + " " + std::to_string(static_cast<int>(message)));
    if (action != actions.end())
        action->second();
    return AcRx::kRetOK;
}

namespace {

class Functions : public testing::Test {
protected:
    void SetUp() override
    {
        buffers = ResbufPool::instance().liveBuffers();
        texts = ResbufPool::instance().liveTexts();
        list.open(L"/p/a.dxf");
    }
    void TearDown() override
    {
        actions.clear();
        modules.unloadAll();
        list.closeAll();
        EXPECT_EQ(ResbufPool::instance().liveBuffers(), buffers);
        EXPECT_EQ(ResbufPool::instance().liveTexts(), texts);
    }
    void load(const char* path) { ASSERT_EQ(modules.load(platform::wideFromUtf8(path)), std::nullopt); }
    std::wstring valueOf(const std::wstring& name, resbuf* arguments = nullptr)
    {
        const LispResult result = callLispFunction(name, ResbufChain(arguments));
        return result.failure.empty() ? lispText(result.value.get()) : result.failure;
    }

    std::size_t buffers = 0, texts = 0;
    DocumentList& list = DocumentList::instance();
    ModuleTable& modules = ModuleTable::instance();
};

TEST_F(Functions, areDefinedInEachDocumentAndForgottenWithIt)
{
    actions["Temoin 3"] = [] {
        EXPECT_EQ(acedDefun(L"c:Zoomé", 30), RTNORM);
        EXPECT_EQ(acedDefun(L"maxnum", 9), RTNORM);
    };
    load(TEST_MODULE);
    Document& a = *list.current();
    Document& b = *list.open(L"/p/b.dxf").document;
    for (Document* document : {&a, &b}) {
        const LispFunction* function = LispFunctionTable::of(*document).find(L"C:ZOOMÉ");
        ASSERT_NE(function, nullptr);
        EXPECT_EQ(function->name, L"c:Zoomé");
        EXPECT_EQ(function->code, 30);
    }
    actions["Temoin 4"] = [] {
        EXPECT_EQ(acedUndef(L"MAXNUM", 8), RTERROR) << "another code";
        EXPECT_EQ(acedUndef(L"MAXNUM", 9), RTNORM);
        EXPECT_EQ(acedUndef(L"MAXNUM", 9), RTERROR);
    };
    ASSERT_EQ(list.close(b), std::nullopt);
    EXPECT_NE(LispFunctionTable::of(a).find(L"maxnum"), nullptr);

    // What the module did not undefine goes with it all the same: it would lead nowhere.
    ASSERT_EQ(modules.unload(L"Temoin.arx"), std::nullopt);
    EXPECT_EQ(LispFunctionTable::of(a).names(), std::vector<std::wstring>{});
}

TEST_F(Functions, refuseWhatAutoLispCannotCall)
{
    struct Row {
        const char* name;
        const wchar_t* function;
        short code;
        int answer;
    };
    static constexpr Row rows[] = {
        {"plain", L"modif-attrib", 0, RTNORM}, {"last code", L"k_getpt", 32767, RTNORM},
        {"negative code", L"f", -1, RTERROR},  {"no name", nullptr, 0, RTERROR},
        {"empty name", L"", 0, RTERROR},       {"blank inside", L"a b", 0, RTERROR},
        {"parenthesis", L"f(", 0, RTERROR},    {"quote", L"'f", 0, RTERROR},
        {"text quote", L"\"f\"", 0, RTERROR},  {"comment", L"f;g", 0, RTERROR},
        {"line break", L"f\n", 0, RTERROR},    {"the dot of a pair", L".", 0, RTERROR},
    };
    actions["Temoin 3"] = [] {
        for (const Row& row : rows)
            EXPECT_EQ(acedDefun(row.function, row.code), row.answer) << row.name;
    };
    load(TEST_MODULE);
    EXPECT_EQ(LispFunctionTable::of(*list.current()).names(), (std::vector<std::wstring>{L"k_getpt", L"modif-attrib"}));
    EXPECT_EQ(acedDefun(L"f", 0), RTERROR) << "no module is running";
    actions["Second 1"] = [this] {
        list.closeAll();
        EXPECT_EQ(acedDefun(L"f", 0), RTERROR) << "no document";
    };
    load(SECOND_MODULE);
}

TEST_F(Functions, defineAgainChangesHands)
{
    actions["Temoin 3"] = [] { acedDefun(L"f", 1); };
    actions["Second 3"] = [] { acedDefun(L"F", 2); };
    load(TEST_MODULE);
    load(SECOND_MODULE);
    actions["Temoin 4"] = [] { EXPECT_EQ(acedUndef(L"f", 1), RTERROR) << "no longer its own"; };
    actions["Second 5"] = [] { acedRetInt(acedGetFunCode()); };
    EXPECT_EQ(valueOf(L"f"), L"2");
    ASSERT_EQ(modules.unload(L"Temoin.arx"), std::nullopt);
    EXPECT_EQ(valueOf(L"f"), L"2");
}

TEST_F(Functions, giveTheValueTheySetLast)
{
    static const ads_point point{1, 2, 3};
    static const ads_name name{10, 0};
    struct Row {
        const char* name;
        std::function<void()> body;
        std::wstring value;
    };
    const Row rows[] = {
        {"nothing set", [] {}, L"nil"},
        {"no value", [] { acedRetVoid(); }, L""},
        {"nil", [] { acedRetNil(); }, L"nil"},
        {"true", [] { acedRetT(); }, L"T"},
        {"integer", [] { acedRetInt(-70000); }, L"-70000"},
        {"real", [] { acedRetReal(0.5); }, L"0.5"},
        {"text", [] { acedRetStr(L"S1"); }, L"\"S1\""},
        {"point", [] { acedRetPoint(point); }, L"(1.0 2.0 3.0)"},
        {"entity", [] { acedRetName(name, RTENAME); }, L"<Nom d'entité : a>"},
        {"a name of no kind", [] { EXPECT_EQ(acedRetName(name, RTSTR), RTERROR); }, L"nil"},
        {"null text", [] { EXPECT_EQ(acedRetStr(nullptr), RTERROR); }, L"nil"},
        {"the last one counts",
         [] {
             acedRetInt(1);
             acedRetStr(L"b");
         },
         L"\"b\""},
        {"list of one",
         [] {
             const ResbufChain c(acutBuildList(RTSHORT, 1, 0));
             acedRetList(c.get());
         },
         L"(1)"},
        {"list in a list",
         [] {
             const ResbufChain c(acutBuildList(RTLB, RTSTR, L"a", RTDOTE, RTSHORT, 1, RTLE, RTREAL, 2.0, 0));
             acedRetList(c.get());
         },
         L"((\"a\" . 1) 2.0)"},
        {"empty list", [] { acedRetList(nullptr); }, L"nil"},
        {"first value of a chain",
         [] {
             const ResbufChain c(acutBuildList(RTLB, RTSHORT, 1, RTLE, RTSHORT, 2, 0));
             acedRetVal(c.get());
         },
         L"(1)"},
    };
    actions["Temoin 3"] = [] { acedDefun(L"f", 0); };
    load(TEST_MODULE);
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        actions["Temoin 5"] = row.body;
        EXPECT_EQ(valueOf(L"f"), row.value);
    }
}

TEST_F(Functions, receiveTheirArgumentsAsOftenAsTheyAsk)
{
    actions["Temoin 3"] = [] { acedDefun(L"f", 7); };
    load(TEST_MODULE);
    actions["Temoin 5"] = [] {
        EXPECT_EQ(acedGetFunCode(), 7);
        const ResbufChain first(acedGetArgs()), second(acedGetArgs());
        EXPECT_TRUE(!first || first != second) << "each its own copy";
        EXPECT_EQ(lispText(first.get()), lispText(second.get()));
        acedRetList(second.get());
    };
    EXPECT_EQ(valueOf(L"F", acutBuildList(RTSTR, L"S1", RTLB, RTREAL, 1.0, RTREAL, 2.0, RTLE, 0)),
              L"(\"S1\" (1.0 2.0))");
    EXPECT_EQ(valueOf(L"F"), L"nil");

    EXPECT_EQ(acedGetFunCode(), RTERROR);
    EXPECT_EQ(acedGetArgs(), nullptr);
    EXPECT_EQ(acedRetInt(1), RTERROR);
}

TEST_F(Functions, callsStack)
{
    actions["Temoin 3"] = [] {
        acedDefun(L"outer", 1);
        acedDefun(L"inner", 2);
    };
    load(TEST_MODULE);
    actions["Temoin 5"] = [this] {
        if (acedGetFunCode() == 2) {
            acedRetStr(L"inner");
            throw std::runtime_error("division par zéro");
        }
        acedRetStr(L"outer");
        EXPECT_EQ(valueOf(L"inner"), L"La fonction « inner » a échoué : division par zéro.");
        EXPECT_EQ(acedGetFunCode(), 1);
    };
    EXPECT_EQ(valueOf(L"outer"), L"\"outer\"");
    EXPECT_EQ(modules.running(), nullptr);
}

TEST_F(Functions, unknownOnesAndNoDrawingAreTold)
{
    EXPECT_EQ(valueOf(L"absente", acutBuildList(RTSTR, L"lost", 0)), L"Fonction inconnue : « absente ».");
    list.closeAll();
    EXPECT_EQ(valueOf(L"absente"), L"Aucun dessin n'est ouvert.");
}

} // namespace
