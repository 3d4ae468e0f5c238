#include <memory>

#include <gtest/gtest.h>

#include "../rx/moduleTalk.h"
#include "ed/CommandStack.h"
#include "platform/CodePage.h"

#include "moduleActions.h"

std::map<AcRx::AppMsgCode, std::function<void()>> moduleActions;

extern "C" __attribute__((visibility("default"))) AcRx::AppRetCode moduleHeard(const char*, AcRx::AppMsgCode message,
                                                                               void* packet)
{
    if (message == AcRx::kInitAppMsg)
        acrxDynamicLinker->unlockApplication(packet);
    if (const auto action = moduleActions.find(message); action != moduleActions.end())
        action->second();
    return AcRx::kRetOK;
}

namespace {

void nothing() {}
void nothingElse() {}

class Stack : public testing::Test {
protected:
    void TearDown() override
    {
        for (const wchar_t* group : {L"QUARVEL4", L"AUTRE", L"TROISIEME", L"HOTE"})
            stack.removeGroup(group);
        EXPECT_EQ(listing(), L"");
    }
    Acad::ErrorStatus add(const wchar_t* group, const wchar_t* global, const wchar_t* local)
    {
        return stack.addCommand(group, global, local, ACRX_CMD_MODAL, nothing);
    }
    std::wstring listing()
    {
        std::wstring text;
        const std::unique_ptr<AcEdCommandIterator> each(stack.iterator());
        for (; !each->done(); each->next())
            text += std::wstring(each->commandGroup()) + L":" + each->command()->globalName() + L" ";
        return text;
    }
    AcEdCommandStack& stack = *acedRegCmds;
};

TEST_F(Stack, keepsCommandsInOrderAndSearchesTheLastGroupFirst)
{
    EXPECT_EQ(add(L"QUARVEL4", L"CARROYAGE", L"CARROYAGE"), Acad::eOk);
    EXPECT_EQ(add(L"QUARVEL4", L"RECT", L"RECTANGLE"), Acad::eOk);
    EXPECT_EQ(add(L"AUTRE", L"RECT", L"RECTANGLE"), Acad::eOk);
    EXPECT_EQ(add(L"quarvel4", L"PTSEN3D", L"PTSEN3D"), Acad::eOk);
    EXPECT_EQ(listing(), L"AUTRE:RECT QUARVEL4:CARROYAGE QUARVEL4:RECT QUARVEL4:PTSEN3D ");

    const AcEdCommand* ofOther = stack.lookupCmd(L"RECT", L"AUTRE");
    EXPECT_EQ(stack.lookupGlobalCmd(L"rect"), ofOther);
    EXPECT_EQ(stack.lookupLocalCmd(L"Rectangle"), ofOther);
    EXPECT_EQ(stack.lookupLocalCmd(L"RECT"), nullptr);
    EXPECT_EQ(stack.lookupCmd(L"RECT", true, true), ofOther);
    EXPECT_EQ(stack.lookupCmd(L"RECT", false, false), nullptr);
    EXPECT_EQ(stack.lookupCmd(nullptr, true, true), nullptr);

    EXPECT_EQ(stack.popGroupToTop(L"Quarvel4"), Acad::eOk);
    EXPECT_EQ(stack.lookupGlobalCmd(L"RECT"), stack.lookupCmd(L"RECTANGLE", L"QUARVEL4"));
    EXPECT_EQ(stack.popGroupToTop(L"ABSENT"), Acad::eKeyNotFound);
    EXPECT_EQ(CommandStack::instance().localNames(),
              (std::vector<std::wstring>{L"CARROYAGE", L"RECTANGLE", L"PTSEN3D"}));
}

TEST_F(Stack, keepsWhatWasRegistered)
{
    AcEdCommand* added = nullptr;
    EXPECT_EQ(stack.addCommand(L"QUARVEL4", L"RECT3PT", L"RECT3PTS", ACRX_CMD_TRANSPARENT | ACRX_CMD_USEPICKSET,
                               nothing, nullptr, 7, nullptr, &added),
              Acad::eOk);
    ASSERT_NE(added, nullptr);
    EXPECT_STREQ(added->localName(), L"RECT3PTS");
    EXPECT_EQ(added->commandFlags(), 3);
    EXPECT_EQ(added->functionAddr(), nothing);
    EXPECT_EQ(added->fcode(), 7);
    EXPECT_EQ(stack.lookupGlobalCmd(L"RECT3PT"), added);
}

TEST_F(Stack, refusesAndRemoves)
{
    EXPECT_EQ(add(L"QUARVEL4", L"A", L"B"), Acad::eOk);
    EXPECT_EQ(add(L"QUARVEL4", L"a", L"C"), Acad::eDuplicateKey);
    EXPECT_EQ(add(L"QUARVEL4", L"C", L"b"), Acad::eDuplicateKey);
    EXPECT_EQ(add(L"AUTRE", L"A", L"B"), Acad::eOk);
    EXPECT_EQ(add(L"", L"C", L"C"), Acad::eInvalidInput);
    EXPECT_EQ(add(L"AUTRE", nullptr, L"C"), Acad::eInvalidInput);
    EXPECT_EQ(stack.addCommand(L"AUTRE", L"C", L"C", 0, nullptr), Acad::eInvalidInput);

    EXPECT_EQ(stack.removeCmd(L"QUARVEL4", L"B"), Acad::eKeyNotFound) << "a local name";
    EXPECT_EQ(stack.removeCmd(L"QUARVEL4", L"a"), Acad::eOk);
    EXPECT_EQ(stack.removeCmd(L"QUARVEL4", L"A"), Acad::eKeyNotFound);
    EXPECT_EQ(stack.removeCmd(L"ABSENT", L"A"), Acad::eKeyNotFound);
    EXPECT_EQ(stack.removeGroup(L"autre"), Acad::eOk);
    EXPECT_EQ(stack.removeGroup(L"AUTRE"), Acad::eKeyNotFound);
}

TEST_F(Stack, aliasesLeadToGlobalNames)
{
    add(L"HOTE", L"LINE", L"LIGNE");
    CommandStack::instance().addAlias(L"L", L"LINE");
    CommandStack::instance().addAlias(L"X", L"ABSENT");
    ASSERT_NE(CommandStack::instance().lookupAlias(L"l"), nullptr);
    EXPECT_STREQ(CommandStack::instance().lookupAlias(L"l")->localName(), L"LIGNE");
    EXPECT_EQ(CommandStack::instance().lookupAlias(L"X"), nullptr);
    EXPECT_EQ(CommandStack::instance().lookupAlias(L"LIGNE"), nullptr);
    EXPECT_EQ(stack.lookupLocalCmd(L"L"), nullptr) << "no command has the name";
}

TEST_F(Stack, dropsWhatAModuleLeft)
{
    add(L"AUTRE", L"LIGNE", L"LIGNE");
    moduleActions[AcRx::kInitAppMsg] = [this] {
        add(L"QUARVEL4", L"CARROYAGE", L"CARROYAGE");
        EXPECT_EQ(stack.addCommand(L"AUTRE", L"IMPLANT", L"IMPLANT", 0, nothingElse), Acad::eOk);
    };
    ASSERT_EQ(ModuleTable::instance().load(platform::wideFromUtf8(TEST_MODULE)), std::nullopt);
    EXPECT_EQ(listing(), L"QUARVEL4:CARROYAGE AUTRE:LIGNE AUTRE:IMPLANT ");
    EXPECT_EQ(ModuleTable::instance().unload(L"Temoin.arx"), std::nullopt);
    EXPECT_EQ(listing(), L"AUTRE:LIGNE ");
    moduleActions.clear();
}

} // namespace
