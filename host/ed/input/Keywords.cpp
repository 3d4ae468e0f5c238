#include "ed/input/Keywords.h"

#include <algorithm>

#include "platform/LetterCase.h"

namespace {

std::vector<std::wstring> wordsOf(std::wstring_view list)
{
    std::vector<std::wstring> words;
    constexpr std::wstring_view blanks = L" \t\n";
    std::size_t at = list.find_first_not_of(blanks);
    while (at != std::wstring_view::npos) {
        const std::size_t end = std::min(list.find_first_of(blanks, at), list.size());
        words.emplace_back(list.substr(at, end - at));
        at = list.find_first_not_of(blanks, end);
    }
    return words;
}

bool isCapital(wchar_t c)
{
    return platform::lowerCase(c) != c || (c >= L'0' && c <= L'9');
}

bool startsNoCase(std::wstring_view text, std::wstring_view start)
{
    return text.size() >= start.size() && platform::equalNoCase(text.substr(0, start.size()), start);
}

/// "LTYPE,LT": the abbreviation is told.
bool matchesTold(std::wstring_view word, std::wstring_view least, std::wstring_view typed)
{
    return startsNoCase(word, typed) && typed.size() >= least.size();
}

/// "LType": the capitals suffice, wherever they stand; what is typed further goes on with the word behind them.
bool matchesCapitals(std::wstring_view word, std::wstring_view typed)
{
    const auto first = std::ranges::find_if(word, isCapital);
    if (first == word.end())
        return platform::equalNoCase(word, typed);
    const auto last = std::find_if_not(first, word.end(), isCapital);
    const std::wstring_view capitals =
        word.substr(static_cast<std::size_t>(first - word.begin()), static_cast<std::size_t>(last - first));
    const std::wstring_view fromCapitals = word.substr(static_cast<std::size_t>(first - word.begin()));
    if (typed.size() >= capitals.size() && startsNoCase(fromCapitals, typed))
        return true;
    const auto least = static_cast<std::size_t>(last - word.begin());
    return typed.size() >= least && startsNoCase(word, typed);
}

bool matches(std::wstring_view word, std::wstring_view typed)
{
    if (typed.empty())
        return false;
    if (const std::size_t comma = word.find(L','); comma != std::wstring_view::npos)
        return matchesTold(word.substr(0, comma), word.substr(comma + 1), typed);
    if (word.size() > 1 && word.ends_with(L'_'))
        return platform::equalNoCase(word.substr(0, word.size() - 1), typed);
    return matchesCapitals(word, typed);
}

/// French letters as they are typed in a hurry.
std::wstring withoutAccents(std::wstring_view text)
{
    constexpr std::wstring_view accented = L"\u00C0\u00C2\u00C7\u00C8\u00C9\u00CA\u00CB\u00CE\u00CF\u00D4\u00D9\u00DB"
                                           L"\u00E0\u00E2\u00E7\u00E8\u00E9\u00EA\u00EB\u00EE\u00EF\u00F4\u00F9\u00FB";
    constexpr std::wstring_view plain = L"AACEEEEIIOUUaaceeeeiiouu";
    static_assert(accented.size() == plain.size());
    std::wstring letters(text);
    for (wchar_t& c : letters)
        if (const std::size_t at = accented.find(c); at != std::wstring_view::npos)
            c = plain[at];
    return letters;
}

} // namespace

std::optional<std::vector<InputKeyword>> keywordsOf(std::wstring_view list)
{
    const std::vector<std::wstring> words = wordsOf(list);
    const auto middle = std::ranges::find(words, L"_");
    std::vector<InputKeyword> keywords;
    if (middle == words.end()) {
        for (const std::wstring& word : words)
            keywords.push_back({word, word});
        return keywords;
    }
    const auto count = static_cast<std::size_t>(middle - words.begin());
    if (words.size() != 2 * count + 1)
        return std::nullopt;
    for (std::size_t i = 0; i < count; ++i)
        keywords.push_back({words[i], words[count + 1 + i]});
    return keywords;
}

const InputKeyword* matchingKeyword(const std::vector<InputKeyword>& keywords, std::wstring_view typed)
{
    const bool isGlobal = typed.starts_with(L'_');
    if (isGlobal)
        typed.remove_prefix(1);
    auto found = std::ranges::find_if(keywords, [&](const InputKeyword& keyword) {
        return matches(isGlobal ? keyword.global : keyword.local, typed);
    });
    if (found == keywords.end() && !isGlobal)
        found = std::ranges::find_if(keywords, [plain = withoutAccents(typed)](const InputKeyword& keyword) {
            return matches(withoutAccents(keyword.local), plain);
        });
    return found == keywords.end() ? nullptr : &*found;
}

std::wstring keywordText(std::wstring_view word)
{
    word = word.substr(0, word.find(L','));
    if (word.size() > 1 && word.ends_with(L'_'))
        word.remove_suffix(1);
    return std::wstring(word);
}

std::wstring keywordAnswer(const InputKeyword& keyword)
{
    return keywordText(keyword.global);
}
