#include "lisp/LispText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "rx/ResbufValue.h"

std::wstring lispRealText(double value)
{
    char digits[32];
    char* const end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 6).ptr;
    std::wstring text(digits, end);
    if (!std::isfinite(value) || text.find(L'.') != std::wstring::npos)
        return text;
    // A real is told from an integer by its point: 2.0, 1.0e+38.
    return text.insert(std::min(text.find(L'e'), text.size()), L".0");
}

std::wstring lispQuotedText(std::wstring_view text)
{
    std::wstring out = L"\"";
    for (const wchar_t c : text) {
        switch (c) {
        case L'"':
        case L'\\':
            out += L'\\';
            out += c;
            break;
        case L'\n':
            out += L"\\n";
            break;
        case L'\r':
            out += L"\\r";
            break;
        case L'\t':
            out += L"\\t";
            break;
        default:
            out += c;
        }
    }
    return out + L'"';
}

std::wstring lispNameText(int type, std::int64_t name)
{
    char digits[17];
    char* const end = std::to_chars(digits, digits + sizeof digits, static_cast<std::uint64_t>(name), 16).ptr;
    const std::wstring text(digits, end);
    return (type == RTPICKS ? L"<Jeu de sélection : " : L"<Nom d'entité : ") + text + L">";
}

namespace {

/// The text of a buffer of that type.
struct AtomText {
    int type;

    std::wstring operator()(double value) const { return lispRealText(value); }
    std::wstring operator()(std::int64_t value) const { return std::to_wstring(value); }
    std::wstring operator()(std::wstring_view value) const { return lispQuotedText(value); }
    std::wstring operator()(ResbufName name) const { return lispNameText(type, name.words[0]); }
    std::wstring operator()(const ads_binary& block) const { return L"<" + std::to_wstring(block.clen) + L" octets>"; }
    std::wstring operator()(std::span<const ads_real> point) const
    {
        std::wstring text = L"(" + lispRealText(point[0]);
        for (const ads_real coordinate : point.subspan(1))
            text += L" " + lispRealText(coordinate);
        return text + L")";
    }
    std::wstring operator()(std::monostate) const
    {
        return type == RTT ? L"T" : type == RTNIL ? L"nil" : type == RTDOTE ? L"." : L"";
    }
};

} // namespace

std::wstring lispText(const resbuf* values)
{
    std::wstring text;
    int depth = 0;
    for (; values; values = values->rbnext) {
        const bool ends = values->restype == RTLE;
        if (!text.empty() && text.back() != L'(' && !ends)
            text += L' ';
        if (values->restype == RTLB && values->rbnext && values->rbnext->restype == RTLE) {
            text += L"nil"; // the empty list
            values = values->rbnext;
        } else if (values->restype == RTLB) {
            text += L'(';
            ++depth;
        } else if (ends && depth > 0) {
            text += L')';
            --depth;
        } else {
            text += visitValue(*values, AtomText{values->restype});
        }
    }
    return text.append(static_cast<std::size_t>(depth), L')'); // lists that were left open
}
