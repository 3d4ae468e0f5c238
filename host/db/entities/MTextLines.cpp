#include "db/entities/MTextLines.h"

namespace {

/// Walks contents and gathers what shows.
class MTextReader {
public:
    explicit MTextReader(std::wstring_view contents) : m_text(contents) {}

    std::vector<std::wstring> read()
    {
        m_lines.emplace_back();
        while (m_at < m_text.size())
            take(m_text[m_at++]);
        return std::move(m_lines);
    }

private:
    void show(wchar_t c) { m_lines.back().push_back(c); }
    wchar_t peek(std::size_t ahead = 0) const { return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : L'\0'; }

    void take(wchar_t c)
    {
        if (c == L'\\' && m_at < m_text.size())
            code(m_text[m_at++]);
        else if (c == L'%' && peek() == L'%')
            controlCode();
        else if (c == L'\n')
            m_lines.emplace_back();
        else if (c != L'{' && c != L'}' && c != L'\r')
            show(c);
    }

    void code(wchar_t c)
    {
        switch (c) {
        case L'P':
        case L'N':
        case L'X':
            m_lines.emplace_back();
            break;
        case L'~':
            show(L'\u00A0');
            break;
        case L'\\':
        case L'{':
        case L'}':
            show(c);
            break;
        case L'L':
        case L'l':
        case L'O':
        case L'o':
        case L'K':
        case L'k':
            break; // lines under, over and through the text
        case L'S':
            stacked();
            break;
        case L'U':
            unicode();
            break;
        case L'A':
        case L'C':
        case L'c':
        case L'F':
        case L'f':
        case L'H':
        case L'p':
        case L'Q':
        case L'T':
        case L'W':
            skipTo(L';');
            break;
        default:
            show(L'\\');
            show(c);
        }
    }

    void skipTo(wchar_t end)
    {
        const std::size_t found = m_text.find(end, m_at);
        m_at = found == std::wstring_view::npos ? m_text.size() : found + 1;
    }

    void stacked()
    {
        for (; m_at < m_text.size() && m_text[m_at] != L';'; ++m_at) {
            const wchar_t c = m_text[m_at];
            show(c == L'^' || c == L'#' ? L'/' : c);
        }
        ++m_at;
    }

    /// U+XXXX after the backslash; anything else shows as it stands.
    void unicode()
    {
        unsigned value = 0;
        int digits = 0;
        for (; peek() == L'+' && digits < 4; ++digits) {
            const wchar_t c = peek(static_cast<std::size_t>(digits) + 1);
            const unsigned digit = c >= L'0' && c <= L'9'   ? static_cast<unsigned>(c - L'0')
                                   : c >= L'A' && c <= L'F' ? static_cast<unsigned>(c - L'A') + 10
                                   : c >= L'a' && c <= L'f' ? static_cast<unsigned>(c - L'a') + 10
                                                            : 16;
            if (digit == 16)
                break;
            value = value * 16 + digit;
        }
        if (digits < 4) {
            show(L'\\');
            show(L'U');
            return;
        }
        show(static_cast<wchar_t>(value));
        m_at += 5;
    }

    void controlCode()
    {
        const wchar_t c = peek(1);
        constexpr std::wstring_view letters = L"dDcCpP%", shown = L"°°ØØ±±%";
        const std::size_t known = letters.find(c);
        if (c == L'\0' || known == std::wstring_view::npos) {
            show(L'%');
            return;
        }
        show(shown[known]);
        m_at += 2;
    }

    std::wstring_view m_text;
    std::size_t m_at = 0;
    std::vector<std::wstring> m_lines;
};

} // namespace

std::vector<std::wstring> visibleLines(std::wstring_view contents)
{
    return MTextReader(contents).read();
}
