#include <clocale>
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "afxwin.h"

namespace {

template <class... Arguments>
std::wstring formatted(const wchar_t* format, Arguments... arguments)
{
    CString text;
    text.Format(format, arguments...);
    return text.GetString();
}

struct Row {
    const char* name;
    std::wstring shown;
    const wchar_t* expected;
};

TEST(Format, FollowsTheWideConventions)
{
    const double infinite = std::numeric_limits<double>::infinity();
    const wchar_t unended[] = {L'a', L'b', L'c'};
    const Row rows[] = {
        {"wide text under %s", formatted(L"[%s]", L"été €"), L"[été €]"},
        {"narrow text under %S is Windows-1252", formatted(L"[%S]", "\xE9\x80"), L"[é€]"},
        {"%hs narrow, %ls wide", formatted(L"%hs %ls", "\xE8", L"Ω"), L"è Ω"},
        {"null texts", formatted(L"%s %S", static_cast<wchar_t*>(nullptr), static_cast<char*>(nullptr)),
         L"(null) (null)"},
        {"width counts characters", formatted(L"%10s|%-6s|", L"évêque", L"né"), L"    évêque|né    |"},
        {"precision cuts, and needs no zero", formatted(L"%.3s", unended), L"abc"},
        {"narrow precision", formatted(L"%.2hs|", "abc"), L"ab|"},
        {"wide and narrow characters", formatted(L"%c%C%hc%lc", L'Ω', '\xE9', '\xE8', L'é'), L"Ωéèé"},
        {"padded character", formatted(L"%3c|", L'é'), L"  é|"},
        {"whole numbers", formatted(L"%d %i %u %x %X %o", -5, 7, 8u, 255, 255, 8), L"-5 7 8 ff FF 10"},
        {"unsigned keeps 32 bits", formatted(L"%u %x", -1, -1), L"4294967295 ffffffff"},
        {"zero and width", formatted(L"%05d|%-5d|%+d|% d|%#x", 42, 42, 42, 42, 42), L"00042|42   |+42| 42|0x2a"},
        {"64-bit sizes", formatted(L"%lld %I64d %I64u", 1LL << 40, -(1LL << 40), 1ULL << 63),
         L"1099511627776 -1099511627776 9223372036854775808"},
        {"short sizes cut", formatted(L"%hd %hhu %hx", 65537, 257, 65536 + 10), L"1 1 a"},
        {"fixed decimals", formatted(L"%.2f|%f|%8.3f|%-8.1f|", 1.005, 2.5, -1.5, 0.25),
         L"1.00|2.500000|  -1.500|0.2     |"},
        {"%4f is a width, not decimals", formatted(L"Z=%4f", 1.5), L"Z=1.500000"},
        {"starred width and precision", formatted(L"%*.*f|%-*d|", 9, 3, 3.14159, 4, 7), L"    3.142|7   |"},
        {"negative starred width is left", formatted(L"%*d|", -4, 7), L"7   |"},
        {"negative starred precision is none", formatted(L"%.*f", -1, 0.5), L"0.500000"},
        {"exponent and shortest", formatted(L"%e %E %g %G", 12345.678, 0.5, 0.0001, 1e-10),
         L"1.234568e+04 5.000000E-01 0.0001 1E-10"},
        {"the unknown altitude, all its digits", formatted(L"%.6f", 1e38),
         L"99999999999999997748809823456034029568.000000"},
        {"not finite", formatted(L"%f %.2f %5.1f", infinite, -infinite, std::fabs(std::nan(""))), L"inf -inf   nan"},
        {"negative zero keeps its sign", formatted(L"%.1f", -0.0), L"-0.0"},
        {"percent sign", formatted(L"%d%% de %%d", 5), L"5% de %d"},
        {"unknown letter is plain text", formatted(L"%y %k%d", 3), L"%y %k3"},
        {"format built from a negative precision", formatted(L"%.-5f", 1.0), L"%.-5f"},
        {"lone percent at the end", formatted(L"100 %"), L"100 %"},
        {"%n writes no memory", formatted(L"%n|"), L"%n|"},
        {"empty", formatted(L""), L""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.shown, row.expected) << row.name;
}

TEST(Format, AbsurdFieldsAreHeldWithinBounds)
{
    EXPECT_LE(formatted(L"%.2000000000f", 0.1).size(), 5000U);
    EXPECT_LE(formatted(L"%99999999999d", 1).size(), 5000U);
    EXPECT_LE(formatted(L"%*d", std::numeric_limits<int>::min(), 1).size(), 5000U);
    EXPECT_EQ(formatted(L"%.300f", 1e300).size(), 301U + 1U + 300U);
}

TEST(Format, NumbersIgnoreTheLocale)
{
    for (const char* french : {"fr_FR.UTF-8", "fr_FR.utf8", "de_DE.UTF-8"})
        if (std::setlocale(LC_ALL, french) != nullptr)
            break; // without one on this machine the row below still holds
    EXPECT_EQ(formatted(L"%.1f %g", 1.5, 2.5), L"1.5 2.5");
    std::setlocale(LC_ALL, "C");
}

TEST(Format, ReadsItsOwnTextBeforeReplacingIt)
{
    CString text(L"P12");
    text.Format(L"%s-%s", text.GetString(), text.GetString());
    EXPECT_STREQ(text, L"P12-P12");
    text.AppendFormat(L"/%s", text.GetString());
    EXPECT_STREQ(text, L"P12-P12/P12-P12");
}

} // namespace
