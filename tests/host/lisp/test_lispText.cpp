#include <gtest/gtest.h>

#include "lisp/LispText.h"
#include "rx/ResbufChain.h"

#include "acutmem.h"

namespace {

const ads_point point{1.5, -2.0, 1e38};
const ads_name entity{0x1f, 0};

TEST(LispText, showsValuesAsAutoLispDoes)
{
    struct Row {
        const char* name;
        resbuf* value;
        const wchar_t* text;
    };
    const Row rows[] = {
        {"nothing", nullptr, L""},
        {"no value", acutBuildList(RTVOID, 0), L""},
        {"nil", acutBuildList(RTNIL, 0), L"nil"},
        {"true", acutBuildList(RTT, 0), L"T"},
        {"integers", acutBuildList(RTSHORT, -7, RTLONG, 70000L, 0), L"-7 70000"},
        {"whole real", acutBuildList(RTREAL, 2.0, 0), L"2.0"},
        {"six digits", acutBuildList(RTREAL, 3.14159265, 0), L"3.14159"},
        {"large real", acutBuildList(RTREAL, 1234567.8, 0), L"1.23457e+06"},
        {"unknown altitude", acutBuildList(RTREAL, 1e38, 0), L"1.0e+38"},
        {"text", acutBuildList(RTSTR, L"dit \"S1\" \\ été\n", 0), L"\"dit \\\"S1\\\" \\\\ été\\n\""},
        {"points", acutBuildList(RTPOINT, point, RT3DPOINT, point, 0), L"(1.5 -2.0) (1.5 -2.0 1.0e+38)"},
        {"names", acutBuildList(RTENAME, entity, RTPICKS, entity, 0), L"<Nom d'entité : 1f> <Jeu de sélection : 1f>"},
        {"lists", acutBuildList(RTLB, RTSHORT, 1, RTLB, RTSTR, L"a", RTLE, RTNIL, RTLE, 0), L"(1 (\"a\") nil)"},
        {"empty list", acutBuildList(RTLB, RTLE, 0), L"nil"},
        {"dotted pair", acutBuildList(RTLB, RTSTR, L"code", RTDOTE, RTSHORT, 3, RTLE, 0), L"(\"code\" . 3)"},
        {"list left open", acutBuildList(RTLB, RTLB, RTSHORT, 1, 0), L"((1))"},
    };
    for (const Row& row : rows) {
        const ResbufChain owned(row.value);
        EXPECT_EQ(lispText(row.value), row.text) << row.name;
    }
}

} // namespace
