#include "lisp/drawing/DrawingBuiltins.h"
#include "lisp/drawing/LispConversion.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispError.h"
#include "lisp/eval/LispTexts.h"
#include "lisp/LispHooks.h"

#include "acedads.h"
#include "acedCmdNF.h"

namespace {

/// nil for a variable that is not known.
LispValue getVariable(LispContext& context, LispArguments arguments)
{
    const ResbufChain buffer(acutNewRb(RTNIL));
    if (acedGetVar(lisp_argument::text(arguments[0]).c_str(), buffer.get()) != RTNORM)
        return {};
    return valueOfBuffer(context, *buffer);
}

ResbufChain variableValue(LispContext& context, const LispValue& value)
{
    if (!value.isPair())
        return chainOf(context, {&value, 1});
    const AcGePoint3d point = lisp_argument::point(value);
    ResbufChain buffer(acutNewRb(lisp_argument::isPoint2d(value) ? RTPOINT : RT3DPOINT));
    buffer->resval.rpoint[0] = point.x;
    buffer->resval.rpoint[1] = point.y;
    buffer->resval.rpoint[2] = point.z;
    return buffer;
}

LispValue setVariable(LispContext& context, LispArguments arguments)
{
    const std::wstring& name = lisp_argument::text(arguments[0]);
    if (acedSetVar(name.c_str(), variableValue(context, arguments[1]).get()) != RTNORM)
        throw LispError(lisp_texts::variableRefused + name);
    return arguments[1];
}

void typeAtCommandLine(LispContext& context, LispArguments arguments)
{
    const auto& command = LispHooks::instance().command;
    if (!command)
        throw LispError(lisp_texts::noCommandLine);
    const std::wstring failure = command(chainOf(context, arguments).get());
    if (!failure.empty())
        throw LispError(failure);
}

LispValue command(LispContext& context, LispArguments arguments)
{
    typeAtCommandLine(context, arguments);
    return {};
}

/// The command ends within the call.
LispValue wholeCommand(LispContext& context, LispArguments arguments)
{
    if (acedCmdS(chainOf(context, arguments).get()) != RTNORM)
        throw LispError(lisp_texts::cancelledCommand);
    return {};
}

LispValue commandWithAnswer(LispContext& context, LispArguments arguments)
{
    typeAtCommandLine(context, arguments);
    return context.truth(true);
}

LispValue alert(LispContext& context, LispArguments arguments)
{
    const std::wstring& text = lisp_argument::text(arguments[0]);
    if (const auto& show = LispHooks::instance().alert)
        show(text);
    else
        context.host().print(L"\n" + text);
    return {};
}

/// (getfiled title proposed extensions flags): flag 1 asks for a file to write, which need not be there.
LispValue chooseFile(LispContext&, LispArguments arguments)
{
    const auto& choose = LispHooks::instance().chooseFile;
    if (!choose)
        throw LispError(lisp_texts::noCommandLine);
    const bool toSave = (lisp_argument::integer(arguments[3]) & 1) != 0;
    const auto chosen = choose(lisp_argument::text(arguments[0]), lisp_argument::text(arguments[1]),
                               lisp_argument::text(arguments[2]), toSave);
    return chosen ? LispValue(*chosen) : LispValue();
}

/// What has nothing to do here: commands ask without dialogs, and *error* may call any command.
LispValue nothing(LispContext&, LispArguments)
{
    return {};
}

constexpr LispBuiltin kRows[] = {
    {L"*POP-ERROR-MODE*", 0, 0, nothing},
    {L"*PUSH-ERROR-USING-COMMAND*", 0, 0, nothing},
    {L"*PUSH-ERROR-USING-STACK*", 0, 0, nothing},
    {L"ALERT", 1, 1, alert},
    {L"COMMAND", 0, LispBuiltin::any, command},
    {L"COMMAND-S", 0, LispBuiltin::any, wholeCommand},
    {L"GETFILED", 4, 4, chooseFile},
    {L"GETVAR", 1, 1, getVariable},
    {L"INITDIA", 0, 1, nothing},
    {L"SETVAR", 2, 2, setVariable},
    {L"VL-CMDF", 0, LispBuiltin::any, commandWithAnswer},
};

} // namespace

std::span<const LispBuiltin> hostBuiltins()
{
    return kRows;
}
