#include "text/MTextReader.h"

#include <algorithm>
#include <cwchar>
#include <optional>

#include "ge/Angles.h"
#include "text/ShownText.h"

namespace {

using Kind = MTextPiece::Kind;
using Side = MTextPiece::Side;

constexpr double mostHeight = 1e9; // of what a code asks for, in heights of the text
constexpr double mostWidth = 1e9;  // the same, as a factor
constexpr std::wstring_view stackSigns = L"/^#";

/// Goes through the contents and cuts them into pieces.
class Reader {
public:
    Reader(std::wstring_view contents, const MTextLook& base) : m_text(contents), m_base(base.height)
    {
        m_format.look = base;
    }

    std::vector<MTextPiece> read()
    {
        while (m_at < m_text.size())
            take(m_text[m_at++]);
        return std::move(m_pieces);
    }

private:
    /// The look of what follows; braces keep it.
    struct Format {
        MTextLook look;
        Side side = Side::byAttachment;
    };

    wchar_t peek(std::size_t ahead = 0) const { return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : L'\0'; }

    MTextPiece& add(Kind kind, std::wstring text = {})
    {
        MTextPiece& piece = m_pieces.emplace_back();
        piece.kind = kind;
        piece.look = m_format.look;
        piece.side = m_format.side;
        piece.text = std::move(text);
        return piece;
    }

    void show(wchar_t c)
    {
        const Kind kind = c == L' ' || c == L'\t' ? Kind::blank : Kind::word;
        if (m_pieces.empty() || m_changed || m_pieces.back().kind != kind || kind == Kind::blank)
            add(kind);
        m_changed = false;
        m_pieces.back().text.push_back(c == L'\t' ? L' ' : c);
    }

    void take(wchar_t c)
    {
        if (c == L'\\' && m_at < m_text.size())
            return code(m_text[m_at++]);
        if (c == L'%' && peek() == L'%')
            return controlCode();
        if (c == L'\n')
            return newLine();
        if (c == L'{')
            return m_kept.push_back(m_format);
        if (c == L'}')
            return giveBack();
        if (c != L'\r')
            show(c);
    }

    void newLine() { add(Kind::newLine); }

    void giveBack()
    {
        if (m_kept.empty())
            return;
        m_format = m_kept.back();
        m_kept.pop_back();
        m_changed = true;
    }

    void code(wchar_t c)
    {
        m_changed = true;
        MTextLook& look = m_format.look;
        switch (c) {
        case L'P':
        case L'N':
        case L'X':
            return newLine();
        case L'~':
            return show(L'\u00A0');
        case L'\\':
        case L'{':
        case L'}':
            m_changed = false;
            return show(c);
        case L'L':
        case L'l':
            look.underlined = c == L'L';
            return;
        case L'O':
        case L'o':
            look.overlined = c == L'O';
            return;
        case L'K':
        case L'k':
            look.struck = c == L'K';
            return;
        case L'S':
            return stack();
        case L'U':
            return unicode();
        case L'C':
            look.color = static_cast<std::int16_t>(std::clamp(std::wcstol(argument().c_str(), nullptr, 10), 0L, 256L));
            look.trueColor = -1;
            return;
        case L'c':
            return trueColor(std::wcstol(argument().c_str(), nullptr, 10));
        case L'H':
            if (const auto height = scaled(argument(), look.height); height && *height < m_base * mostHeight)
                look.height = *height;
            return;
        case L'W':
            if (const auto factor = scaled(argument(), look.widthFactor); factor && *factor < mostWidth)
                look.widthFactor = *factor;
            return;
        case L'Q':
            look.oblique = std::clamp(std::wcstod(argument().c_str(), nullptr), -85.0, 85.0) * oneDegree;
            return;
        case L'p':
            return paragraph(argument());
        case L'A':
        case L'F':
        case L'f':
        case L'T':
            argument();
            return;
        default:
            show(L'\\');
            show(c);
        }
    }

    /// Up to the semicolon.
    std::wstring argument()
    {
        const std::size_t end = std::min(m_text.find(L';', m_at), m_text.size());
        std::wstring text(m_text.substr(m_at, end - m_at));
        m_at = std::min(end + 1, m_text.size());
        return text;
    }

    /// A value, or a factor of the present one: "0.7x".
    static std::optional<double> scaled(const std::wstring& text, double present)
    {
        wchar_t* end = nullptr;
        const double value = std::wcstod(text.c_str(), &end);
        const double result = *end == L'x' || *end == L'X' ? present * value : value;
        return result > 0.0 ? std::optional(result) : std::nullopt;
    }

    /// Blue, green, red: the order of the file.
    void trueColor(long value)
    {
        m_format.look.trueColor =
            static_cast<std::int32_t>((value & 0xFF) << 16 | (value & 0xFF00) | (value >> 16 & 0xFF));
    }

    /// Of all that a paragraph may say, the side counts: "xqc".
    void paragraph(const std::wstring& text)
    {
        const std::size_t at = text.find(L'q');
        if (at == std::wstring::npos || at + 1 >= text.size())
            return;
        const wchar_t side = text[at + 1];
        m_format.side = side == L'c'   ? Side::middle
                        : side == L'r' ? Side::right
                        : side == L'l' ? Side::left
                                       : Side::byAttachment;
    }

    /// Two texts over each other, up to the semicolon. The first / ^ or # parts them; a backslash keeps the character
    /// behind it, a semicolon too.
    void stack()
    {
        std::wstring upper, lower;
        wchar_t sign = L'\0';
        for (; m_at < m_text.size() && m_text[m_at] != L';'; ++m_at) {
            const bool kept = m_text[m_at] == L'\\' && m_at + 1 < m_text.size();
            m_at += kept;
            const wchar_t c = m_text[m_at];
            if (!kept && !sign && stackSigns.find(c) != stackSigns.npos)
                sign = c;
            else
                (sign ? lower : upper).push_back(c);
        }
        m_at = std::min(m_at + 1, m_text.size());
        if (!sign || sign == L'#') { // on one line
            for (const wchar_t c : sign ? upper + L'/' + lower : upper)
                show(c);
            return;
        }
        MTextPiece& piece = add(Kind::stack, std::move(upper));
        piece.lower = std::move(lower);
        piece.barred = sign == L'/';
    }

    /// A backslash and a U that begin no number show as they stand.
    void unicode()
    {
        m_changed = false;
        constexpr std::size_t begun = 2;
        if (const auto coded = codedCharacter(m_text.substr(m_at - begun))) {
            m_at += coded->length - begun;
            return show(coded->shown);
        }
        show(L'\\');
        show(L'U');
    }

    void controlCode()
    {
        const auto coded = codedCharacter(m_text.substr(m_at - 1));
        if (!coded)
            return show(L'%');
        m_at += coded->length - 1;
        show(coded->shown);
    }

    std::wstring_view m_text;
    std::size_t m_at = 0;
    double m_base;
    Format m_format;
    std::vector<Format> m_kept;
    std::vector<MTextPiece> m_pieces;
    bool m_changed = false; // the look, since the last character
};

} // namespace

std::vector<MTextPiece> piecesOf(std::wstring_view contents, const MTextLook& base)
{
    return Reader(contents, base).read();
}

std::wstring shownContents(std::wstring_view contents)
{
    std::wstring shown;
    for (const MTextPiece& piece : piecesOf(contents)) {
        if (piece.kind == Kind::newLine)
            shown += L'\n';
        shown += piece.text;
        if (piece.kind == Kind::stack)
            shown += L'/' + piece.lower;
    }
    return shown;
}
