#include <gtest/gtest.h>

#include "dxf/DxfEncoding.h"

namespace {

struct Row {
    const char* name;
    const char* page;
    std::string bytes;
    std::wstring text;
};

} // namespace

TEST(DxfEncodingTest, ReadsAndWritesTheSameBytes)
{
    const Row rows[] = {
        {"escapes that the text itself has", "ANSI_1252", "\\U+005CU+0041 \\U+005CM+1889F \\U+ \\P",
         L"\\U+0041 \\M+1889F \\U+ \\P"},
        {"plain", "ANSI_1252", "borne 12", L"borne 12"},
        {"accent", "ANSI_1252", "\xE9t\xE9 \x80", L"été €"},
        {"lower case name", "ansi_1252", "\xE9", L"é"},
        {"Cyrillic", "ANSI_1251", "\xC6", L"Ж"},
        {"DOS", "dos850", "\x82", L"é"},
        {"Thai", "ANSI_874", "\xA1", L"ก"},
        {"Chinese by its old name", "GB2312", "\xD6\xD0", L"中"},
        {"Japanese whose second byte is a backslash", "ANSI_932", "\x95\x5C", L"表"},
        {"Japanese whose second byte is a caret", "ANSI_932", "\x89\x5E", L"運"},
        {"Korean", "ANSI_949", "\xC7\xD1", L"한"},
        {"Taiwanese", "ANSI_950", "\xA4\xA4", L"中"},
        {"Johab", "ANSI_1361", "\xD0\x65", L"한"},
        {"UTF-8", "UTF-8", "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", L"é€\U0001F600"},
        {"what the page lacks", "ANSI_1252", "\\U+0416", L"Ж"},
        {"beyond the first plane", "ANSI_1252", "\\U+D83D\\U+DE00", L"\U0001F600"},
        {"control characters", "ANSI_1252", "a^Jb^Mc^Id", L"a\nb\rc\td"},
        {"caret", "ANSI_1252", "1^ 2", L"1^2"},
        {"byte of no character", "ANSI_1252", "a\x81", L"a\xDC81"},
        {"UTF-8 cut inside a letter", "UTF-8", "a\xC3", L"a\xDCC3"},
        {"UTF-8 longer than need be", "UTF-8", "\xC0\xAF", L"\xDCC0\xDCAF"},
        {"half a pair of surrogates stays", "ANSI_1252", "\\U+DC81", L"\\U+DC81"},
        {"escape cut short stays", "ANSI_1252", "\\U+00E", L"\\U+00E"},
        {"backslash of a format", "ANSI_1252", "{\\H2.5;a}", L"{\\H2.5;a}"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const DxfEncoding& encoding = DxfEncoding::forCodePage(row.page);
        EXPECT_EQ(encoding.decode(row.bytes), row.text);
        EXPECT_EQ(encoding.encode(row.text), row.bytes);
    }
}

TEST(DxfEncodingTest, ReadsWhatItWouldWriteOtherwise)
{
    const Row rows[] = {
        {"escaped though the page has it", "ANSI_1252", "\\U+00E9", L"é"},
        {"lower-case digits", "ANSI_1252", "\\U+00e9", L"é"},
        {"multibyte escape, Japanese", "ANSI_1252", "\\M+1955C", L"表"},
        {"multibyte escape, Chinese", "ANSI_1252", "\\M+5D6D0", L"中"},
        {"caret before a digit", "ANSI_1252", "m^2", L"m^2"},
        {"caret at the end", "ANSI_1252", "m^", L"m^"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(DxfEncoding::forCodePage(row.page).decode(row.bytes), row.text);
    }
}

TEST(DxfEncodingTest, EveryByteSurvives)
{
    std::string all;
    for (int c = 0x80; c < 0x100; ++c)
        all += {static_cast<char>(c), 'A'};
    for (const char* page : {"ANSI_1252", "ANSI_1251", "ANSI_1258", "ANSI_874", "dos437", "UTF-8"}) {
        const DxfEncoding& encoding = DxfEncoding::forCodePage(page);
        EXPECT_EQ(encoding.encode(encoding.decode(all)), all) << page;
    }
}

TEST(DxfEncodingTest, UnknownPagesAreSaidToBe)
{
    bool known = true;
    EXPECT_EQ(DxfEncoding::forCodePage("KLINGON", &known).name(), "CP1252");
    EXPECT_FALSE(known);
    EXPECT_EQ(&DxfEncoding::forCodePage("ANSI_936", &known), &DxfEncoding::forCodePage("gb2312"));
    EXPECT_TRUE(known);
}
