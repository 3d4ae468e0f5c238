#include "lisp/eval/LispArgument.h"

#include "lisp/eval/LispError.h"
#include "lisp/eval/LispPrinter.h"
#include "lisp/eval/LispTexts.h"

namespace lisp_argument {

void refuse(const wchar_t* predicate, const LispValue& value)
{
    constexpr std::size_t shown = 120;
    throw LispError(std::wstring(lisp_texts::wrongType) + predicate + L" " + lispShortened(value, shown));
}

double number(const LispValue& value)
{
    if (!value.isNumber())
        refuse(L"numberp:", value);
    return value.number();
}

std::int32_t integer(const LispValue& value)
{
    if (!value.isInteger())
        refuse(L"fixnump:", value);
    return value.integer();
}

const std::wstring& text(const LispValue& value)
{
    if (!value.isText())
        refuse(L"stringp:", value);
    return value.text();
}

LispSymbol& symbol(const LispValue& value)
{
    if (!value.isSymbol())
        refuse(L"symbolp:", value);
    return value.symbol();
}

const LispValue& list(const LispValue& value)
{
    if (!value.isList())
        refuse(L"listp:", value);
    return value;
}

std::vector<LispValue> items(const LispValue& value)
{
    std::vector<LispValue> found;
    const LispValue* rest = &value;
    for (; rest->isPair(); rest = &rest->cdr())
        found.push_back(rest->car());
    if (!rest->isNil())
        refuse(L"listp:", value);
    return found;
}

AcGePoint3d point(const LispValue& value)
{
    double coordinates[3] = {0.0, 0.0, 0.0};
    std::size_t count = 0;
    const LispValue* rest = &value;
    for (; rest->isPair() && count < 3 && rest->car().isNumber(); rest = &rest->cdr())
        coordinates[count++] = rest->car().number();
    if (count < 2 || !rest->isNil())
        throw LispError(lisp_texts::badPoint + lispShortened(value, 120));
    return {coordinates[0], coordinates[1], coordinates[2]};
}

bool isPoint2d(const LispValue& point)
{
    return point.cdr().cdr().isNil();
}

} // namespace lisp_argument
