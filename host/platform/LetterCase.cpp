#include "platform/LetterCase.h"

#include <algorithm>
#include <cwctype>

#include <locale.h>

namespace platform {

namespace {

/// The C library's Unicode tables, without the user's language (Turkish has another lower case of I).
locale_t unicode()
{
    static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return locale;
}

} // namespace

wchar_t lowerCase(wchar_t c)
{
    if (c < 0x80)
        return c >= L'A' && c <= L'Z' ? c + (L'a' - L'A') : c;
    return unicode() == nullptr ? c : static_cast<wchar_t>(towlower_l(static_cast<wint_t>(c), unicode()));
}

wchar_t upperCase(wchar_t c)
{
    if (c < 0x80)
        return c >= L'a' && c <= L'z' ? c - (L'a' - L'A') : c;
    return unicode() == nullptr ? c : static_cast<wchar_t>(towupper_l(static_cast<wint_t>(c), unicode()));
}

std::wstring lowerCase(std::wstring_view text)
{
    std::wstring result(text);
    std::transform(result.begin(), result.end(), result.begin(), [](wchar_t c) { return lowerCase(c); });
    return result;
}

std::wstring upperCase(std::wstring_view text)
{
    std::wstring result(text);
    std::transform(result.begin(), result.end(), result.begin(), [](wchar_t c) { return upperCase(c); });
    return result;
}

int compareNoCase(std::wstring_view a, std::wstring_view b)
{
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
        const wchar_t left = lowerCase(a[i]);
        const wchar_t right = lowerCase(b[i]);
        if (left != right)
            return left < right ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

} // namespace platform
