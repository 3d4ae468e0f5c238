#pragma once

#include <string>
#include <string_view>

/// Letter case of all of Unicode, one character for one, whatever the user's locale: É and é are the same letter, e
/// is another.
namespace platform {

wchar_t lowerCase(wchar_t c);
wchar_t upperCase(wchar_t c);
std::wstring lowerCase(std::wstring_view text);
std::wstring upperCase(std::wstring_view text);

/// Negative, zero or positive, comparing lower-case characters by code.
int compareNoCase(std::wstring_view a, std::wstring_view b);
inline bool equalNoCase(std::wstring_view a, std::wstring_view b)
{
    return a.size() == b.size() && compareNoCase(a, b) == 0;
}

} // namespace platform
