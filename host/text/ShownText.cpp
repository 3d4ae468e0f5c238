#include "text/ShownText.h"

#include "platform/CodePage.h"
#include "platform/LetterCase.h"
#include "text/TextMetrics.h"

namespace {

constexpr std::size_t digitsOfNumber = 3, digitsOfUnicode = 4;

bool isDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

int hexDigit(wchar_t c)
{
    return isDigit(c) ? c - L'0' : c >= L'A' && c <= L'F' ? c - L'A' + 10 : c >= L'a' && c <= L'f' ? c - L'a' + 10 : -1;
}

wchar_t at(std::wstring_view text, std::size_t position)
{
    return position < text.size() ? text[position] : L'\0';
}

/// %%nnn; numbers are those of the code page of drawings.
std::optional<CodedCharacter> numbered(std::wstring_view text)
{
    int number = 0;
    std::size_t digits = 0;
    for (; digits < digitsOfNumber && isDigit(at(text, 2 + digits)); ++digits)
        number = number * 10 + (at(text, 2 + digits) - L'0');
    if (digits == 0 || number < 32 || number > 255)
        return std::nullopt;
    return CodedCharacter{platform::wideFromAnsi(static_cast<char>(number)), 2 + digits};
}

std::optional<CodedCharacter> unicode(std::wstring_view text)
{
    if (platform::lowerCase(at(text, 1)) != L'u' || at(text, 2) != L'+')
        return std::nullopt;
    int value = 0;
    for (std::size_t i = 0; i < digitsOfUnicode; ++i) {
        const int digit = hexDigit(at(text, 3 + i));
        if (digit < 0)
            return std::nullopt;
        value = value * 16 + digit;
    }
    return CodedCharacter{static_cast<wchar_t>(value), 3 + digitsOfUnicode};
}

/// Goes through a text and gathers what shows.
class ShownReader {
public:
    explicit ShownReader(std::wstring_view text) : m_text(text) { m_runs.emplace_back(); }

    std::vector<ShownRun> read()
    {
        while (!m_text.empty())
            if (const auto coded = codedCharacter(m_text))
                show(coded->shown, coded->length);
            else if (!line())
                show(m_text.front(), 1);
        std::erase_if(m_runs, [](const ShownRun& run) { return run.text.empty(); });
        return std::move(m_runs);
    }

private:
    void show(wchar_t c, std::size_t length)
    {
        m_runs.back().text.push_back(c);
        m_text.remove_prefix(length);
    }

    /// A line under, over or through what follows begins, or ends.
    bool line()
    {
        if (!m_text.starts_with(L"%%"))
            return false;
        const wchar_t code = platform::lowerCase(at(m_text, 2));
        if (code != L'u' && code != L'o' && code != L'k')
            return false;
        ShownRun next = m_runs.back();
        next.text.clear();
        bool& drawn = code == L'u' ? next.underlined : code == L'o' ? next.overlined : next.struck;
        drawn = !drawn;
        m_runs.push_back(std::move(next));
        m_text.remove_prefix(3);
        return true;
    }

    std::wstring_view m_text; // what is not read yet
    std::vector<ShownRun> m_runs;
};

} // namespace

std::optional<CodedCharacter> codedCharacter(std::wstring_view text)
{
    if (text.starts_with(L"\\"))
        return unicode(text);
    if (!text.starts_with(L"%%"))
        return std::nullopt;
    switch (platform::lowerCase(at(text, 2))) {
    case L'd':
        return CodedCharacter{L'°', 3};
    case L'p':
        return CodedCharacter{L'±', 3};
    case L'c':
        return CodedCharacter{L'Ø', 3};
    case L'%':
        return CodedCharacter{L'%', at(text, 3) == L'%' ? 4U : 3U};
    default:
        return numbered(text);
    }
}

std::vector<ShownRun> shownText(std::wstring_view text)
{
    return ShownReader(text).read();
}

double shownWidth(std::wstring_view text)
{
    double width = 0.0;
    for (const ShownRun& run : shownText(text))
        width += textWidth(run.text);
    return width;
}
