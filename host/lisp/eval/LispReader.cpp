#include "lisp/eval/LispReader.h"

#include <algorithm>

#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispError.h"
#include "lisp/eval/LispNumber.h"
#include "lisp/eval/LispTexts.h"

namespace {

constexpr std::wstring_view kBreaks = L" \t\r\n\f\v()'\";\x1A";

bool isBlank(wchar_t c)
{
    return c <= L' ';
}

/// The letters that may follow a backslash for a character that one cannot see.
wchar_t controlCharacter(wchar_t letter)
{
    switch (letter) {
    case L'n':
        return L'\n';
    case L'r':
        return L'\r';
    case L't':
        return L'\t';
    case L'e':
        return L'\x1B';
    default:
        return letter;
    }
}

int digitOf(wchar_t c, int base)
{
    const int digit = c >= L'0' && c <= L'9'   ? c - L'0'
                      : c >= L'A' && c <= L'F' ? c - L'A' + 10
                      : c >= L'a' && c <= L'f' ? c - L'a' + 10
                                               : base;
    return digit < base ? digit : -1;
}

/// "1.2.3" is a slip of the hand; "1+" and "3D" are names.
bool looksLikeNumber(std::wstring_view atom)
{
    return atom.find_first_not_of(L"+-.0123456789") == std::wstring_view::npos &&
           atom.find_first_of(L"0123456789") != std::wstring_view::npos && atom.find(L'.') != std::wstring_view::npos;
}

} // namespace

void LispReader::refuse(const std::wstring& what, std::size_t at) const
{
    const auto line = 1 + std::count(m_text.begin(), m_text.begin() + static_cast<std::ptrdiff_t>(at), L'\n');
    throw LispError(what + L" (ligne " + std::to_wstring(line) + L")");
}

std::optional<LispValue> LispReader::next()
{
    m_open.clear();
    while (skipToToken()) {
        const std::size_t start = m_at;
        std::optional<LispValue> complete;
        switch (m_text[m_at]) {
        case L'(':
            ++m_at;
            m_open.push_back({.start = start, .quote = false, .items = {}, .tail = {}, .dotted = false});
            continue;
        case L'\'':
            ++m_at;
            m_open.push_back({.start = start, .quote = true, .items = {}, .tail = {}, .dotted = false});
            continue;
        case L')':
            if (m_open.empty())
                refuse(lisp_texts::extraParenthesis, start);
            ++m_at;
            complete = deliver(closeList());
            break;
        case L'"':
            complete = readText();
            break;
        default:
            if (const std::wstring_view atom = atomHere(); atom != L".") {
                complete = deliver(readAtom(atom, start));
            } else {
                if (m_open.empty() || m_open.back().quote || m_open.back().items.empty() || m_open.back().dotted)
                    refuse(lisp_texts::misplacedDot, start);
                m_open.back().dotted = true;
            }
        }
        if (complete)
            return complete;
    }
    if (!m_open.empty())
        refuse(m_open.back().quote ? lisp_texts::nothingQuoted : lisp_texts::missingParenthesis, m_open.back().start);
    return std::nullopt;
}

/// Passes blanks and comments. False at the end.
bool LispReader::skipToToken()
{
    while (m_at < m_text.size()) {
        if (isBlank(m_text[m_at])) {
            ++m_at;
        } else if (m_text.substr(m_at, 2) == L";|") {
            const std::size_t end = m_text.find(L"|;", m_at + 2);
            if (end == std::wstring_view::npos)
                refuse(lisp_texts::openComment, m_at);
            m_at = end + 2;
        } else if (m_text[m_at] == L';') {
            m_at = std::min(m_text.find(L'\n', m_at), m_text.size());
        } else {
            return true;
        }
    }
    return false;
}

std::optional<LispValue> LispReader::deliver(LispValue value)
{
    while (!m_open.empty() && m_open.back().quote) {
        const LispValue quoted[] = {LispValue(m_context.symbol(L"QUOTE")), std::move(value)};
        value = listOf(quoted);
        m_open.pop_back();
    }
    if (m_open.empty())
        return value;
    Open& list = m_open.back();
    if (!list.dotted)
        list.items.push_back(std::move(value));
    else if (!list.tail)
        list.tail = std::move(value);
    else
        refuse(lisp_texts::misplacedDot, list.start);
    return std::nullopt;
}

LispValue LispReader::closeList()
{
    Open& list = m_open.back();
    if (list.quote)
        refuse(lisp_texts::nothingQuoted, list.start);
    if (list.dotted && !list.tail)
        refuse(lisp_texts::misplacedDot, list.start);
    LispValue value = listOf(list.items, list.tail.value_or(LispValue()));
    m_open.pop_back();
    return value;
}

std::optional<LispValue> LispReader::readText()
{
    const std::size_t start = m_at++;
    std::wstring text;
    for (; m_at < m_text.size() && m_text[m_at] != L'"';) {
        if (m_text[m_at] == L'\\' && m_at + 1 < m_text.size())
            text += escaped();
        else
            text += m_text[m_at++];
    }
    if (m_at >= m_text.size())
        refuse(lisp_texts::missingQuote, start);
    ++m_at;
    return deliver(LispValue(std::move(text)));
}

/// What a backslash and the characters behind it stand for: \n, \" ..., three octal digits, \U+ and four hexadecimal.
wchar_t LispReader::escaped()
{
    ++m_at;
    const auto number = [this](std::size_t digits, int base) {
        int value = 0;
        for (; digits > 0 && m_at < m_text.size() && digitOf(m_text[m_at], base) >= 0; --digits)
            value = value * base + digitOf(m_text[m_at++], base);
        return static_cast<wchar_t>(value);
    };
    if (digitOf(m_text[m_at], 8) >= 0)
        return number(3, 8);
    if (m_text.substr(m_at, 2) == L"U+" && m_at + 2 < m_text.size() && digitOf(m_text[m_at + 2], 16) >= 0) {
        m_at += 2;
        return number(4, 16);
    }
    return controlCharacter(m_text[m_at++]);
}

std::wstring_view LispReader::atomHere()
{
    const std::size_t end = std::min(m_text.find_first_of(kBreaks, m_at), m_text.size());
    // A control character that is no blank of a text file stands as a name of its own.
    const std::wstring_view atom = m_text.substr(m_at, std::max<std::size_t>(end - m_at, 1));
    m_at += atom.size();
    return atom;
}

LispValue LispReader::readAtom(std::wstring_view atom, std::size_t start)
{
    if (const auto number = lispNumber(atom))
        return *number;
    if (looksLikeNumber(atom))
        refuse(L"« " + std::wstring(atom) + L" »" + lisp_texts::badNumber, start);
    LispSymbol& symbol = m_context.symbol(atom);
    return symbol.name == L"NIL" ? LispValue() : LispValue(symbol);
}
