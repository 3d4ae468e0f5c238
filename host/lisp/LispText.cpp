#include "lisp/LispText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "rx/ResbufKind.h"

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

std::wstring pointText(const resbuf& item)
{
    std::wstring text = L"(" + lispRealText(item.resval.rpoint[0]) + L" " + lispRealText(item.resval.rpoint[1]);
    if (item.restype != RTPOINT)
        text += L" " + lispRealText(item.resval.rpoint[2]);
    return text + L")";
}

std::wstring atomText(const resbuf& item)
{
    switch (resbufKind(item.restype)) {
    case ResbufKind::real:
        return lispRealText(item.resval.rreal);
    case ResbufKind::point:
        return pointText(item);
    case ResbufKind::int16:
        return std::to_wstring(item.resval.rint);
    case ResbufKind::int32:
        return std::to_wstring(item.resval.rlong);
    case ResbufKind::int64:
        return std::to_wstring(item.resval.mnInt64);
    case ResbufKind::text:
        return lispQuotedText(item.resval.rstring ? item.resval.rstring : L"");
    case ResbufKind::name:
        return lispNameText(item.restype, item.resval.rlname[0]);
    case ResbufKind::bytes:
        return L"<" + std::to_wstring(item.resval.rbinary.clen) + L" octets>";
    case ResbufKind::none:
    case ResbufKind::unknown:
        break;
    }
    return item.restype == RTT ? L"T" : item.restype == RTNIL ? L"nil" : item.restype == RTDOTE ? L"." : L"";
}

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
            text += atomText(*values);
        }
    }
    return text.append(static_cast<std::size_t>(depth), L')'); // lists that were left open
}
