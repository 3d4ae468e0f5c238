#include <numbers>

#include <gtest/gtest.h>

#include "rx/Console.h"
#include "rx/WildcardMatch.h"

#include "acutads.h"

namespace {

TEST(Console, formatsWideAndRemembersTheLastLine)
{
    std::wstring printed;
    Console::instance().setSink([&printed](const std::wstring& text) { printed += text; });
    EXPECT_EQ(acutPrintf(L"\n %d points placés", 12), RTNORM);
    EXPECT_EQ(Console::instance().lastLine(), L" 12 points placés");
    acutPrintf(L"\nCode %s : ", L"borne");
    acutPrintf(L"%.2f", 1.5);
    EXPECT_EQ(Console::instance().lastLine(), L"Code borne : 1.50");
    acutPrintf(L"\n");
    EXPECT_EQ(Console::instance().lastLine(), L"Code borne : 1.50");
    EXPECT_EQ(printed, L"\n 12 points placés\nCode borne : 1.50\n");
    Console::instance().setSink(nullptr);
}

TEST(Wildcards, matchAsFiltersExpect)
{
    struct Row {
        const wchar_t* text;
        const wchar_t* pattern;
        bool matches;
    };
    const Row rows[] = {
        {L"S12", L"S12", true},
        {L"S12", L"s12", false},
        {L"S12", L"S#", false},
        {L"S12", L"S##", true},
        {L"S12", L"@*", true},
        {L"été", L"@@@", true},
        {L"S-2", L"@.#", true},
        {L"S12", L"...", false},
        {L"", L"*", true},
        {L"", L"", true},
        {L"", L"?", false},
        {L"abcabd", L"*abd", true},
        {L"abcabd", L"a*c*d", true},
        {L"abcabd", L"a*c", false},
        {L"B3", L"[ABC]#", true},
        {L"D3", L"[ABC]#", false},
        {L"D3", L"[A-D]#", true},
        {L"D3", L"[~A-D]#", false},
        {L"-", L"[+-]", true},
        {L"]", L"[`]]", true},
        {L"[x", L"[x", true},
        {L"LEVE", L"~LEVE", false},
        {L"LEVE2", L"~LEVE", true},
        {L"a,b", L"a`,b", true},
        {L"a,b", L"a,b", false},
        {L"MUR", L"HAIE,MUR,CLOTURE", true},
        {L"MUR", L"HAIE,~MUR", false},
        {L"*", L"`*", true},
        {L"x", L"`*", false},
        {L"a~", L"a~", true},
        {L"`", L"`", true},
    };
    for (const Row& row : rows)
        EXPECT_EQ(wildcardMatch(row.text, row.pattern), row.matches)
            << testing::PrintToString(row.text) << " ~ " << testing::PrintToString(row.pattern);
    EXPECT_EQ(acutWcMatch(L"a", nullptr), RTERROR);
    // Many stars that all could move: quick all the same.
    EXPECT_FALSE(wildcardMatch(std::wstring(5000, L'a'), std::wstring(L"*a*a*a*a*a*a*a*a*a*a*b")));
}

TEST(PlaneGeometry, angles)
{
    const ads_point origin{0, 0, 5}, east{2, 0, 0}, south{0, -2, 0}, hair{1, -1e-300, 0}, away{3, 4, 17};
    EXPECT_DOUBLE_EQ(acutAngle(origin, east), 0.0);
    EXPECT_DOUBLE_EQ(acutAngle(origin, south), 1.5 * std::numbers::pi);
    EXPECT_DOUBLE_EQ(acutAngle(origin, hair), 0.0) << "never the full turn";
    EXPECT_DOUBLE_EQ(acutDistance(origin, away), 13.0);
    ads_point moved{1, 1, 7};
    acutPolar(moved, std::numbers::pi / 2, 2.0, moved);
    EXPECT_NEAR(moved[0], 1.0, 1e-15);
    EXPECT_DOUBLE_EQ(moved[1], 3.0);
    EXPECT_DOUBLE_EQ(moved[2], 7.0);
}

TEST(PlaneGeometry, crossings)
{
    const ads_point a{0, 0, 0}, b{4, 4, 8}, c{0, 2, 9}, d{2, 0, 9}, far1{0, 12, 0}, far2{12, 0, 0};
    const ads_point beside{1, 0, 0}, besideEnd{3, 2, 0}, touching{1, 1, 0};
    ads_point met{};
    ASSERT_EQ(acutInters(a, b, c, d, 1, met), RTNORM);
    EXPECT_DOUBLE_EQ(met[0], 1.0);
    EXPECT_DOUBLE_EQ(met[1], 1.0);
    EXPECT_DOUBLE_EQ(met[2], 2.0);
    EXPECT_EQ(acutInters(a, b, far1, far2, 1, met), RTERROR);
    ASSERT_EQ(acutInters(a, b, far1, far2, 0, met), RTNORM);
    EXPECT_DOUBLE_EQ(met[0], 6.0);
    EXPECT_EQ(acutInters(a, b, beside, besideEnd, 0, met), RTERROR) << "parallel";
    EXPECT_EQ(acutInters(a, a, c, d, 0, met), RTERROR) << "no line";
    ASSERT_EQ(acutInters(a, touching, c, d, 1, met), RTNORM) << "an end that touches";
}

TEST(Lengths, areWrittenWithAFullStop)
{
    struct Row {
        double value;
        int unit, precision;
        const wchar_t* text; // null when refused
    };
    const Row rows[] = {
        {12.345, 2, 2, L"12.35"},    {-0.5, 2, 0, L"-0"},        {1234567.0, 2, 3, L"1234567.000"},
        {1550.0, 1, 2, L"1.55E+03"}, {1.0, 4, 2, nullptr},       {1.0, 2, -1, nullptr},
        {1e30, 2, 2, nullptr},       {1.0 / 0.0, 2, 2, nullptr},
    };
    for (const Row& row : rows) {
        ACHAR text[16] = L"before";
        EXPECT_EQ(acutRToS(row.value, row.unit, row.precision, text, std::size(text)), row.text ? RTNORM : RTERROR);
        EXPECT_STREQ(text, row.text ? row.text : L"before");
    }
}

} // namespace
