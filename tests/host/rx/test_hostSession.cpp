#include <gtest/gtest.h>

#include "rx/Console.h"
#include "rx/HostSession.h"

#include "rxregsvc.h"

namespace {

std::vector<std::string> ends;

struct Base {
    int value = 0;
    ~Base() { ends.push_back("base " + std::to_string(HostSession::part<Base>().value)); }
};

struct OnTop {
    Base& base = HostSession::part<Base>();
    ~OnTop() { ends.push_back("on top of " + std::to_string(HostSession::part<Base>().value)); }
};

} // namespace

TEST(HostSession, BeginsAfreshAndGivesTheOneBeforeItBack)
{
    std::wstring outside, inside;
    Console::instance().setSink([&](const std::wstring& text) { outside += text; });
    AcRxDictionary* const registry = acrxSysRegistry();
    {
        const HostSession session;
        EXPECT_NE(acrxSysRegistry(), registry);
        EXPECT_NE(acrxDynamicLinker, nullptr);
        Console::instance().print(L"to nobody");
        Console::instance().setSink([&](const std::wstring& text) { inside += text; });
        Console::instance().print(L"in");
    }
    EXPECT_EQ(acrxSysRegistry(), registry);
    Console::instance().print(L"out");
    Console::instance().setSink({});
    EXPECT_EQ(inside, L"in");
    EXPECT_EQ(outside, L"out");
}

TEST(HostSession, EndsPartsInTheReverseOrderOfMaking)
{
    ends.clear();
    {
        const HostSession session;
        HostSession::part<OnTop>().base.value = 7;
    }
    EXPECT_EQ(ends, (std::vector<std::string>{"on top of 7", "base 7"}));
}
