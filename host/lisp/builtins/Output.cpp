#include "lisp/builtins/Builtins.h"
#include "lisp/builtins/OpenFile.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispFile.h"
#include "lisp/eval/LispPrinter.h"

namespace {

/// To the file that an argument names, else to the command line.
void show(LispContext& context, LispArguments arguments, std::size_t fileArgument, const std::wstring& text)
{
    if (LispFile* file = openFileArgument(arguments, fileArgument))
        file->write(text);
    else
        context.host().print(text);
}

/// A symbol without a name: ends a function whose value the user is not to see.
LispValue nothingToShow(LispContext& context)
{
    return LispValue(context.symbol(L""));
}

LispValue printed(LispContext& context, LispArguments arguments, LispPrinting how)
{
    if (arguments.empty())
        return nothingToShow(context);
    show(context, arguments, 1, lispPrinted(arguments[0], how));
    return arguments[0];
}

LispValue princ(LispContext& context, LispArguments arguments)
{
    return printed(context, arguments, LispPrinting::plain);
}

LispValue prin1(LispContext& context, LispArguments arguments)
{
    return printed(context, arguments, LispPrinting::readable);
}

LispValue print(LispContext& context, LispArguments arguments)
{
    if (arguments.empty())
        return nothingToShow(context);
    show(context, arguments, 1, L"\n" + lispPrinted(arguments[0]) + L" ");
    return arguments[0];
}

LispValue prompt(LispContext& context, LispArguments arguments)
{
    context.host().print(lisp_argument::text(arguments[0]));
    return {};
}

LispValue newLine(LispContext& context, LispArguments)
{
    context.host().print(L"\n");
    return {};
}

LispValue writeLine(LispContext& context, LispArguments arguments)
{
    show(context, arguments, 1, lisp_argument::text(arguments[0]) + L"\n");
    return arguments[0];
}

LispValue writeCharacter(LispContext& context, LispArguments arguments)
{
    const auto code = static_cast<wchar_t>(lisp_argument::integer(arguments[0]));
    show(context, arguments, 1, std::wstring(1, code));
    return arguments[0];
}

constexpr LispBuiltin kRows[] = {
    {L"PRIN1", 0, 2, prin1},          {L"PRINC", 0, 2, princ},    {L"PRINT", 0, 2, print},
    {L"PROMPT", 1, 1, prompt},        {L"TERPRI", 0, 0, newLine}, {L"WRITE-CHAR", 1, 2, writeCharacter},
    {L"WRITE-LINE", 1, 2, writeLine},
};

} // namespace

std::span<const LispBuiltin> outputBuiltins()
{
    return kRows;
}
