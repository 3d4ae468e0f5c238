#include "platform/CodePage.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace platform {

namespace {

/// The characters of the bytes 80 to 9F; every other byte is the character of its own value.
constexpr std::array<wchar_t, 32> windows1252 = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

} // namespace

Utf8Character firstOfUtf8(std::string_view text)
{
    if (text.empty())
        return {};
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    const std::uint8_t lead = byte(0);
    if (lead < 0x80)
        return {lead, 1};
    const std::size_t length = lead >= 0xF0 && lead <= 0xF4  ? 4
                               : lead >= 0xE0 && lead < 0xF0 ? 3
                               : lead >= 0xC2                ? 2
                                                             : 0;
    if (length == 0 || lead > 0xF4 || text.size() < length)
        return {};
    std::uint32_t code = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80)
            return {};
        code = code << 6U | (byte(i) & 0x3FU);
    }
    constexpr std::array<std::uint32_t, 5> least = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code < least[length] || code > 0x10FFFF || surrogate)
        return {};
    return {static_cast<wchar_t>(code), length};
}

void appendUtf8(std::string& out, std::uint32_t code)
{
    const auto add = [&](std::uint32_t byte) { out += static_cast<char>(byte); };
    if (code < 0x80)
        return add(code);
    if (code < 0x800)
        add(0xC0U | code >> 6U);
    else {
        if (code < 0x10000)
            add(0xE0U | code >> 12U);
        else {
            add(0xF0U | code >> 18U);
            add(0x80U | (code >> 12U & 0x3FU));
        }
        add(0x80U | (code >> 6U & 0x3FU));
    }
    add(0x80U | (code & 0x3FU));
}

wchar_t wideFromAnsi(char c)
{
    const auto byte = static_cast<std::uint8_t>(c);
    return byte >= 0x80 && byte < 0xA0 ? windows1252[byte - 0x80U] : static_cast<wchar_t>(byte);
}

std::wstring wideFromAnsi(std::string_view text)
{
    std::wstring result(text.size(), L'\0');
    std::transform(text.begin(), text.end(), result.begin(), [](char c) { return wideFromAnsi(c); });
    return result;
}

std::optional<char> ansiFromWide(wchar_t c)
{
    if ((c >= 0 && c < 0x80) || (c >= 0xA0 && c <= 0xFF))
        return static_cast<char>(c);
    const auto* const found = std::find(windows1252.begin(), windows1252.end(), c);
    if (found == windows1252.end())
        return std::nullopt;
    return static_cast<char>(0x80 + (found - windows1252.begin()));
}

std::string ansiFromWide(std::wstring_view text, char substitute, bool* substituted)
{
    std::string result;
    result.reserve(text.size());
    bool missing = false;
    for (const wchar_t c : text) {
        const std::optional<char> narrow = ansiFromWide(c);
        missing = missing || !narrow;
        result += narrow.value_or(substitute);
    }
    if (substituted != nullptr)
        *substituted = missing;
    return result;
}

std::wstring wideFromUtf8(std::string_view text)
{
    std::wstring result;
    result.reserve(text.size());
    while (!text.empty()) {
        const Utf8Character next = firstOfUtf8(text);
        result += next.length > 0 ? next.character : strayByte + static_cast<std::uint8_t>(text[0]);
        text.remove_prefix(std::max<std::size_t>(next.length, 1));
    }
    return result;
}

std::string utf8FromWide(std::wstring_view text)
{
    std::string result;
    result.reserve(text.size());
    for (const wchar_t c : text) {
        const auto code = static_cast<std::uint32_t>(c);
        if (isStrayByte(c))
            result += static_cast<char>(code - strayByte);
        else
            appendUtf8(result, code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF) ? 0xFFFDU : code);
    }
    return result;
}

std::wstring wideFromFile(std::string_view content)
{
    const bool marked = content.starts_with(byteOrderMark);
    const std::wstring wide = wideFromUtf8(marked ? content.substr(byteOrderMark.size()) : content);
    return std::any_of(wide.begin(), wide.end(), isStrayByte) ? wideFromAnsi(content) : wide;
}

} // namespace platform
