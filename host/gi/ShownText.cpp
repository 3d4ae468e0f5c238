#include "gi/ShownText.h"

#include "platform/CodePage.h"
#include "platform/LetterCase.h"

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

/// Goes through a text and gathers what shows.
class Reader {
public:
    explicit Reader(std::wstring_view text) : m_text(text) { m_runs.emplace_back(); }

    std::vector<ShownRun> read()
    {
        while (m_at < m_text.size())
            if (!control() && !unicode())
                show(m_text[m_at++]);
        std::erase_if(m_runs, [](const ShownRun& run) { return run.text.empty(); });
        return std::move(m_runs);
    }

private:
    wchar_t peek(std::size_t ahead) const { return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : L'\0'; }
    void show(wchar_t c) { m_runs.back().text.push_back(c); }

    void toggle(bool ShownRun::*line)
    {
        ShownRun next = m_runs.back();
        next.text.clear();
        next.*line = !(next.*line);
        m_runs.push_back(std::move(next));
    }

    bool control()
    {
        if (peek(0) != L'%' || peek(1) != L'%')
            return false;
        const auto code = platform::lowerCase(peek(2));
        switch (code) {
        case L'd':
            show(L'°');
            break;
        case L'p':
            show(L'±');
            break;
        case L'c':
            show(L'Ø');
            break;
        case L'%':
            show(L'%');
            if (peek(3) == L'%')
                ++m_at;
            break;
        case L'u':
            toggle(&ShownRun::underlined);
            break;
        case L'o':
            toggle(&ShownRun::overlined);
            break;
        case L'k':
            toggle(&ShownRun::struck);
            break;
        default:
            return numbered();
        }
        m_at += 3;
        return true;
    }

    /// %%nnn; numbers are those of the code page of drawings.
    bool numbered()
    {
        int number = 0;
        std::size_t digits = 0;
        for (; digits < digitsOfNumber && isDigit(peek(2 + digits)); ++digits)
            number = number * 10 + (peek(2 + digits) - L'0');
        if (digits == 0 || number < 32 || number > 255)
            return false;
        show(platform::wideFromAnsi(static_cast<char>(number)));
        m_at += 2 + digits;
        return true;
    }

    bool unicode()
    {
        if (peek(0) != L'\\' || platform::upperCase(peek(1)) != L'U' || peek(2) != L'+')
            return false;
        int value = 0;
        for (std::size_t i = 0; i < digitsOfUnicode; ++i) {
            const int digit = hexDigit(peek(3 + i));
            if (digit < 0)
                return false;
            value = value * 16 + digit;
        }
        show(static_cast<wchar_t>(value));
        m_at += 3 + digitsOfUnicode;
        return true;
    }

    std::wstring_view m_text;
    std::size_t m_at = 0;
    std::vector<ShownRun> m_runs;
};

} // namespace

std::vector<ShownRun> shownText(std::wstring_view text)
{
    return Reader(text).read();
}
