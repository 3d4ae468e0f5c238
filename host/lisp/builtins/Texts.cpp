#include <algorithm>

#include "lisp/builtins/Builtins.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispNumber.h"
#include "lisp/eval/LispPrinter.h"
#include "platform/LetterCase.h"
#include "rx/WildcardMatch.h"

namespace {

using lisp_argument::integer;
using lisp_argument::text;

constexpr int any = LispBuiltin::any;
constexpr auto none = std::wstring::npos;

LispValue positionOf(std::size_t at)
{
    return at == none ? LispValue() : LispValue(static_cast<std::int32_t>(at));
}

/// A position counted from 0 that may be left out; the end of the text when it lies behind it.
std::size_t startArgument(LispArguments arguments, std::size_t which, const std::wstring& in)
{
    if (arguments.size() <= which || arguments[which].isNil())
        return 0;
    const std::int32_t start = integer(arguments[which]);
    if (start < 0)
        lisp_argument::refuse(L"fixnump >= 0:", arguments[which]);
    return std::min(static_cast<std::size_t>(start), in.size());
}

wchar_t character(const LispValue& value)
{
    const std::int32_t code = integer(value);
    if (code <= 0 || code > 0x10FFFF)
        lisp_argument::refuse(L"code de caractère:", value);
    return static_cast<wchar_t>(code);
}

LispValue concatenated(LispContext&, LispArguments arguments)
{
    std::wstring all;
    for (const LispValue& argument : arguments)
        all += text(argument);
    return LispValue(std::move(all));
}

LispValue length(LispContext&, LispArguments arguments)
{
    std::size_t total = 0;
    for (const LispValue& argument : arguments)
        total += text(argument).size();
    return lispInteger(static_cast<std::int64_t>(total));
}

/// The first character is number 1.
LispValue substring(LispContext&, LispArguments arguments)
{
    const std::wstring& whole = text(arguments[0]);
    const std::int32_t start = integer(arguments[1]);
    const std::int32_t count = arguments.size() > 2 ? integer(arguments[2]) : -1;
    if (start < 1)
        lisp_argument::refuse(L"fixnump > 0:", arguments[1]);
    if (arguments.size() > 2 && count < 0)
        lisp_argument::refuse(L"fixnump >= 0:", arguments[2]);
    const std::size_t from = std::min(static_cast<std::size_t>(start - 1), whole.size());
    return LispValue(whole.substr(from, count < 0 ? none : static_cast<std::size_t>(count)));
}

LispValue letterCase(LispContext&, LispArguments arguments)
{
    const std::wstring& given = text(arguments[0]);
    const bool lower = arguments.size() > 1 && !arguments[1].isNil();
    return LispValue(lower ? platform::lowerCase(given) : platform::upperCase(given));
}

LispValue ofCode(LispContext&, LispArguments arguments)
{
    return LispValue(std::wstring(1, character(arguments[0])));
}

LispValue firstCode(LispContext&, LispArguments arguments)
{
    const std::wstring& whole = text(arguments[0]);
    return LispValue(whole.empty() ? 0 : static_cast<std::int32_t>(whole[0]));
}

LispValue matches(LispContext& context, LispArguments arguments)
{
    return context.truth(wildcardMatch(text(arguments[0]), text(arguments[1])));
}

// ---- the vl-string family: positions are counted from 0

LispValue search(LispContext&, LispArguments arguments)
{
    const std::wstring& whole = text(arguments[1]);
    return positionOf(whole.find(text(arguments[0]), startArgument(arguments, 2, whole)));
}

LispValue positionOfCode(LispContext&, LispArguments arguments)
{
    const wchar_t sought = character(arguments[0]);
    const std::wstring& whole = text(arguments[1]);
    const bool fromEnd = arguments.size() > 3 && !arguments[3].isNil();
    const bool hasStart = arguments.size() > 2 && !arguments[2].isNil();
    const std::size_t start = startArgument(arguments, 2, whole);
    return positionOf(fromEnd ? whole.rfind(sought, hasStart ? start : none) : whole.find(sought, start));
}

/// The first place only, as (vl-string-subst new old text start).
LispValue substituted(LispContext&, LispArguments arguments)
{
    const std::wstring& old = text(arguments[1]);
    std::wstring changed = text(arguments[2]);
    const std::size_t at = changed.find(old, startArgument(arguments, 3, changed));
    if (at != none)
        changed.replace(at, old.size(), text(arguments[0]));
    return LispValue(std::move(changed));
}

/// Each character of the first text becomes the one at its place in the second; the last one goes on for those behind.
LispValue translated(LispContext&, LispArguments arguments)
{
    const std::wstring& from = text(arguments[0]);
    const std::wstring& to = text(arguments[1]);
    std::wstring changed = text(arguments[2]);
    if (to.empty())
        return LispValue(std::move(changed));
    for (wchar_t& c : changed)
        if (const std::size_t at = from.find(c); at != none)
            c = to[std::min(at, to.size() - 1)];
    return LispValue(std::move(changed));
}

template <bool left, bool right>
LispValue trimmed(LispContext&, LispArguments arguments)
{
    const std::wstring& characters = text(arguments[0]);
    const std::wstring& whole = text(arguments[1]);
    const std::size_t first = left ? std::min(whole.find_first_not_of(characters), whole.size()) : 0;
    const std::size_t last = right ? whole.find_last_not_of(characters) : whole.size() - 1;
    return LispValue(last == none ? std::wstring() : whole.substr(first, last + 1 - first));
}

LispValue characterAt(LispContext&, LispArguments arguments)
{
    const std::wstring& whole = text(arguments[0]);
    const std::int32_t at = integer(arguments[1]);
    if (at < 0 || static_cast<std::size_t>(at) >= whole.size())
        lisp_argument::refuse(L"position dans le texte:", arguments[1]);
    return LispValue(static_cast<std::int32_t>(whole[static_cast<std::size_t>(at)]));
}

LispValue toCodes(LispContext&, LispArguments arguments)
{
    std::vector<LispValue> codes;
    for (const wchar_t c : text(arguments[0]))
        codes.emplace_back(static_cast<std::int32_t>(c));
    return listOf(codes);
}

LispValue fromCodes(LispContext&, LispArguments arguments)
{
    std::wstring made;
    for (const LispValue& code : lisp_argument::items(arguments[0]))
        made += character(code);
    return LispValue(std::move(made));
}

LispValue readableText(LispContext&, LispArguments arguments)
{
    return LispValue(lispPrinted(arguments[0]));
}
LispValue plainText(LispContext&, LispArguments arguments)
{
    return LispValue(lispPrinted(arguments[0], LispPrinting::plain));
}

constexpr LispBuiltin kRows[] = {
    {L"ASCII", 1, 1, firstCode},
    {L"CHR", 1, 1, ofCode},
    {L"STRCASE", 1, 2, letterCase},
    {L"STRCAT", 0, any, concatenated},
    {L"STRLEN", 0, any, length},
    {L"SUBSTR", 2, 3, substring},
    {L"VL-LIST->STRING", 1, 1, fromCodes},
    {L"VL-PRIN1-TO-STRING", 1, 1, readableText},
    {L"VL-PRINC-TO-STRING", 1, 1, plainText},
    {L"VL-STRING->LIST", 1, 1, toCodes},
    {L"VL-STRING-ELT", 2, 2, characterAt},
    {L"VL-STRING-LEFT-TRIM", 2, 2, trimmed<true, false>},
    {L"VL-STRING-POSITION", 2, 4, positionOfCode},
    {L"VL-STRING-RIGHT-TRIM", 2, 2, trimmed<false, true>},
    {L"VL-STRING-SEARCH", 2, 3, search},
    {L"VL-STRING-SUBST", 3, 4, substituted},
    {L"VL-STRING-TRANSLATE", 3, 3, translated},
    {L"VL-STRING-TRIM", 2, 2, trimmed<true, true>},
    {L"WCMATCH", 2, 2, matches},
};

} // namespace

std::span<const LispBuiltin> textBuiltins()
{
    return kRows;
}
