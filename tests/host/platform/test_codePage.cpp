#include <array>

#include <gtest/gtest.h>

#include "platform/CodePage.h"

#include "windows.h"

namespace {

using namespace platform;

TEST(CodePage, EveryByteComesBack)
{
    for (int byte = 0; byte < 256; ++byte)
        EXPECT_EQ(ansiFromWide(wideFromAnsi(static_cast<char>(byte))), static_cast<char>(byte)) << byte;
    EXPECT_EQ(wideFromAnsi("\x80\x8A\x8C\x99\x9F\xE9"), L"€ŠŒ™Ÿé");
}

TEST(CodePage, NoLookAlikes)
{
    struct Row {
        const char* name;
        const wchar_t* wide;
        const char* narrow;
    };
    const Row rows[] = {
        {"accents and euro", L"é€œ", "\xE9\x80\x9C"},
        {"Greek", L"Ω1", "?1"},
        {"fullwidth A is no A", L"\xFF21", "?"},
        {"infinity is no 8", L"∞", "?"},
        {"combining accent", L"e\u0301", "e?"},
        {"beyond 16 bits, one mark", L"\U0001F600x", "?x"},
        {"control character of a page's gap", L"\x80", "?"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(ansiFromWide(std::wstring_view(row.wide)), row.narrow) << row.name;
}

TEST(CodePage, Utf8KeepsWhatIsNotUtf8)
{
    struct Row {
        const char* name;
        std::string bytes;
        std::size_t characters;
    };
    const Row rows[] = {
        {"one to four bytes", "aé€\xF0\x9F\x98\x80", 4},
        {"Latin-1 name", "caf\xE9.txt", 8},
        {"cut sequence", "\xE2\x82", 2},
        {"overlong slash", "\xC0\xAF", 2},
        {"coded surrogate", "\xED\xA0\x80", 3},
        {"beyond Unicode", "\xF4\x90\x80\x80", 4},
        {"lone continuation", "\x80\xBF", 2},
    };
    for (const Row& row : rows) {
        const std::wstring wide = wideFromUtf8(row.bytes);
        EXPECT_EQ(wide.size(), row.characters) << row.name;
        EXPECT_EQ(utf8FromWide(wide), row.bytes) << row.name;
    }
    EXPECT_EQ(utf8FromWide(std::wstring(1, static_cast<wchar_t>(0xD800))), "\xEF\xBF\xBD");
    EXPECT_EQ(utf8FromWide(std::wstring(1, static_cast<wchar_t>(-1))), "\xEF\xBF\xBD");
}

TEST(CodePage, PublishedCalls)
{
    std::array<char, 8> narrow{};
    BOOL substituted = FALSE;
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, L"é€Ω", -1, nullptr, 0, nullptr, nullptr), 4); // with its zero
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, L"é€Ω", -1, narrow.data(), 8, "_", &substituted), 4);
    EXPECT_STREQ(narrow.data(), "\xE9\x80_");
    EXPECT_TRUE(substituted);
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, L"abc", 2, narrow.data(), 8, nullptr, &substituted), 2);
    EXPECT_FALSE(substituted);
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, L"abc", -1, narrow.data(), 3, nullptr, nullptr), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, L"é", -1, narrow.data(), 8, nullptr, nullptr), 3);

    std::array<wchar_t, 8> wide{};
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "\x80\xE9", -1, wide.data(), 8), 3);
    EXPECT_STREQ(wide.data(), L"€é");
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, "\xC3\xA9t\xC3\xA9", -1, wide.data(), 8), 4);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, "\xE9t", -1, wide.data(), 8), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NO_UNICODE_TRANSLATION));
    EXPECT_EQ(MultiByteToWideChar(932, 0, "a", -1, wide.data(), 8), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

} // namespace
