#include "rx/WildcardMatch.h"

#include "platform/LetterCase.h"

#include "acutads.h"

namespace {

bool isDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

bool isLetter(wchar_t c)
{
    return platform::lowerCase(c) != platform::upperCase(c);
}

/// Length of the element of the pattern that starts at `at`: one character, an escaped one, or a whole set.
std::size_t elementLength(std::wstring_view pattern, std::size_t at)
{
    if (pattern[at] == L'`')
        return at + 1 < pattern.size() ? 2 : 1;
    if (pattern[at] != L'[')
        return 1;
    std::size_t end = at + 1;
    while (end < pattern.size() && pattern[end] != L']')
        end += pattern[end] == L'`' && end + 1 < pattern.size() ? 2 : 1;
    return end < pattern.size() ? end - at + 1 : 1; // without an end it is a plain bracket
}

/// `set` is what stands between the brackets.
bool inSet(wchar_t c, std::wstring_view set)
{
    const bool inverted = set.starts_with(L'~');
    if (inverted)
        set.remove_prefix(1);
    bool found = false;
    for (std::size_t i = 0; i < set.size() && !found; ++i) {
        if (set[i] == L'`' && i + 1 < set.size())
            ++i;
        if (i + 2 < set.size() && set[i + 1] == L'-') {
            found = c >= set[i] && c <= set[i + 2];
            i += 2;
        } else {
            found = c == set[i];
        }
    }
    return found != inverted;
}

bool matchesElement(wchar_t c, std::wstring_view element)
{
    switch (element[0]) {
    case L'#':
        return isDigit(c);
    case L'@':
        return isLetter(c);
    case L'.':
        return !isDigit(c) && !isLetter(c);
    case L'?':
        return true;
    case L'`':
        return c == element.back();
    case L'[':
        return element.size() > 1 ? inSet(c, element.substr(1, element.size() - 2)) : c == L'[';
    default:
        return c == element[0];
    }
}

/// One alternative. A failure after a star moves that star's end one further; earlier stars need no second look.
bool matchesWhole(std::wstring_view text, std::wstring_view pattern)
{
    constexpr std::size_t none = std::wstring_view::npos;
    std::size_t t = 0, p = 0, starPattern = none, starText = 0;
    while (t < text.size() || p < pattern.size()) {
        if (p < pattern.size() && pattern[p] == L'*') {
            starPattern = ++p;
            starText = t;
            continue;
        }
        if (p < pattern.size() && t < text.size()) {
            const std::size_t length = elementLength(pattern, p);
            if (matchesElement(text[t], pattern.substr(p, length))) {
                ++t;
                p += length;
                continue;
            }
        }
        if (starPattern == none || starText >= text.size())
            return false;
        p = starPattern;
        t = ++starText;
    }
    return true;
}

bool matchesAlternative(std::wstring_view text, std::wstring_view pattern)
{
    if (pattern.starts_with(L'~'))
        return !matchesWhole(text, pattern.substr(1));
    return matchesWhole(text, pattern);
}

} // namespace

bool wildcardMatch(std::wstring_view text, std::wstring_view pattern)
{
    std::size_t start = 0;
    for (std::size_t at = 0; at < pattern.size();) {
        if (pattern[at] == L',') {
            if (matchesAlternative(text, pattern.substr(start, at - start)))
                return true;
            start = ++at;
        } else {
            at += elementLength(pattern, at);
        }
    }
    return matchesAlternative(text, pattern.substr(start));
}

int acutWcMatch(const ACHAR* text, const ACHAR* pattern)
{
    return text && pattern && wildcardMatch(text, pattern) ? RTNORM : RTERROR;
}
