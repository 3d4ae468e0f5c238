#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Conversions between wide text and the two narrow encodings in use: Windows-1252 ("ansi": point names, exchange
/// files, reports) and UTF-8 (names on disk, our own files).
namespace platform {

/// Every byte is a character; the five that Windows-1252 leaves free stand for the control characters of that code.
wchar_t wideFromAnsi(char c);
std::wstring wideFromAnsi(std::string_view text);

/// Nothing when the page does not hold the character: no look-alikes.
std::optional<char> ansiFromWide(wchar_t c);
/// One `substitute` for each character that the page does not hold; `substituted`, when given, says whether one was.
std::string ansiFromWide(std::wstring_view text, char substitute = '?', bool* substituted = nullptr);

/// A byte that stands for no character becomes this one plus the byte: a code that no valid text holds.
inline constexpr wchar_t strayByte = 0xDC00;
constexpr bool isStrayByte(wchar_t c)
{
    return c >= strayByte + 0x80 && c <= strayByte + 0xFF;
}

/// What files of UTF-8 may open with.
inline constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// The character at the start of a text of UTF-8, and its bytes; none when the text is empty or opens with other bytes.
struct Utf8Character {
    wchar_t character = 0;
    std::size_t length = 0;
};
Utf8Character firstOfUtf8(std::string_view text);
/// `code` is a character of Unicode.
void appendUtf8(std::string& out, std::uint32_t code);

/// A byte that is no part of valid UTF-8 becomes a stray byte, and utf8FromWide gives it back: file names that are not
/// UTF-8 come through unharmed.
std::wstring wideFromUtf8(std::string_view text);
/// What is no Unicode character (other than such a byte) becomes U+FFFD.
std::string utf8FromWide(std::wstring_view text);

/// What a text file says: UTF-8, with or without a byte order mark, or Windows-1252 when it is no UTF-8.
std::wstring wideFromFile(std::string_view content);

} // namespace platform
