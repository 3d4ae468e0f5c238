#pragma once

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

/// A byte that is no part of valid UTF-8 becomes the character U+DC00 + byte, and utf8FromWide gives it back: file
/// names that are not UTF-8 come through unharmed.
std::wstring wideFromUtf8(std::string_view text);
/// What is no Unicode character (other than such a byte) becomes U+FFFD.
std::string utf8FromWide(std::wstring_view text);

} // namespace platform
