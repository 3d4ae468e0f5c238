#include "lisp/eval/LispPrinter.h"

#include "lisp/eval/LispBuiltin.h"
#include "lisp/eval/LispError.h"
#include "lisp/eval/LispFile.h"
#include "lisp/eval/LispTexts.h"
#include "lisp/LispText.h"

#include "adscodes.h"

namespace {

constexpr std::size_t longestPrint = std::size_t{1} << 22;

std::wstring functionText(const LispValue& value)
{
    if (const LispBuiltin* builtin = value.builtin())
        return std::wstring(L"#<SUBR ") + builtin->name + L">";
    if (const LispSpecialForm* form = value.specialForm())
        return std::wstring(L"#<SUBR ") + form->name + L">";
    if (const LispModuleFunction* function = value.moduleFunction())
        return L"#<EXRXSUBR " + function->symbol->name + L">";
    const std::wstring& name = value.lambda()->name;
    return L"#<USUBR " + (name.empty() ? L"-lambda-" : name) + L">";
}

std::wstring atomText(const LispValue& value, LispPrinting how)
{
    if (value.isNil())
        return L"nil";
    if (value.isInteger())
        return std::to_wstring(value.integer());
    if (value.isReal())
        return lispRealText(value.real());
    if (value.isText())
        return how == LispPrinting::plain ? value.text() : lispQuotedText(value.text());
    if (value.isSymbol())
        return value.symbol().name;
    if (const LispName* name = value.name())
        return lispNameText(name->kind == LispName::Kind::entity ? RTENAME : RTPICKS, name->words[0]);
    if (const LispFile* file = value.file())
        return L"#<FILE " + lispQuotedText(file->name()) + L">";
    return value.failure() ? L"#<%catch-all-apply-error%>" : functionText(value);
}

/// Prints without recursion, up to a number of characters. False when it had to stop.
bool print(const LispValue& value, LispPrinting how, std::size_t most, std::wstring& out)
{
    std::vector<const LispValue*> rests; // what is left of the lists that were begun
    const LispValue* current = &value;
    for (;;) {
        if (out.size() > most)
            return false;
        if (current->isPair()) {
            out += L'(';
            rests.push_back(&current->cdr());
            current = &current->car();
            continue;
        }
        out += atomText(*current, how);
        while (!rests.empty() && !rests.back()->isPair()) {
            if (!rests.back()->isNil())
                out += L" . " + atomText(*rests.back(), how);
            out += L')';
            rests.pop_back();
        }
        if (rests.empty())
            return true;
        out += L' ';
        current = &rests.back()->car();
        rests.back() = &rests.back()->cdr();
    }
}

} // namespace

std::wstring lispPrinted(const LispValue& value, LispPrinting how)
{
    std::wstring text;
    if (!print(value, how, longestPrint, text))
        throw LispError(lisp_texts::textTooLong);
    return text;
}

std::wstring lispShortened(const LispValue& value, std::size_t most)
{
    std::wstring text;
    const bool whole = print(value, LispPrinting::readable, most, text);
    if (whole && text.size() <= most)
        return text;
    return text.substr(0, most) + L"…";
}
