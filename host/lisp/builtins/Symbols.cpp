#include "lisp/builtins/Builtins.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispReader.h"

namespace {

using lisp_argument::symbol;

LispValue set(LispContext& context, LispArguments arguments)
{
    context.assign(symbol(arguments[0]), arguments[1]);
    return arguments[1];
}

const wchar_t* typeName(const LispValue& value)
{
    if (const LispName* name = value.name())
        return name->kind == LispName::Kind::entity ? L"ENAME" : L"PICKSET";
    if (value.builtin() || value.specialForm())
        return L"SUBR";
    if (value.moduleFunction())
        return L"EXRXSUBR";
    if (value.file())
        return L"FILE";
    if (value.lambda())
        return L"USUBR";
    return value.isInteger()  ? L"INT"
           : value.isReal()   ? L"REAL"
           : value.isText()   ? L"STR"
           : value.isSymbol() ? L"SYM"
           : value.isPair()   ? L"LIST"
                              : L"VL-CATCH-ALL-APPLY-ERROR";
}

LispValue type(LispContext& context, LispArguments arguments)
{
    return arguments[0].isNil() ? LispValue() : LispValue(context.symbol(typeName(arguments[0])));
}

LispValue isBound(LispContext& context, LispArguments arguments)
{
    return context.truth(!symbol(arguments[0]).value.isNil());
}

LispValue isSymbol(LispContext& context, LispArguments arguments)
{
    return context.truth(arguments[0].isSymbol());
}

LispValue symbolName(LispContext&, LispArguments arguments)
{
    return LispValue(symbol(arguments[0]).name);
}

LispValue symbolValue(LispContext&, LispArguments arguments)
{
    return symbol(arguments[0]).value;
}

/// The first expression of a text, as data.
LispValue read(LispContext& context, LispArguments arguments)
{
    if (arguments.empty())
        return {};
    LispReader reader(context, lisp_argument::text(arguments[0]));
    return reader.next().value_or(LispValue());
}

LispValue version(LispContext&, LispArguments)
{
    return LispValue(L"Vela AutoLISP (fr)");
}

constexpr LispBuiltin kRows[] = {
    {L"BOUNDP", 1, 1, isBound},
    {L"READ", 0, 1, read},
    {L"SET", 2, 2, set},
    {L"TYPE", 1, 1, type},
    {L"VER", 0, 0, version},
    {L"VL-SYMBOL-NAME", 1, 1, symbolName},
    {L"VL-SYMBOL-VALUE", 1, 1, symbolValue},
    {L"VL-SYMBOLP", 1, 1, isSymbol},
};

} // namespace

std::span<const LispBuiltin> symbolBuiltins()
{
    return kRows;
}
