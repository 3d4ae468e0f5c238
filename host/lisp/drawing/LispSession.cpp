#include "lisp/drawing/LispSession.h"

#include <algorithm>

#include "ap/DocumentData.h"
#include "lisp/builtins/Builtins.h"
#include "lisp/drawing/DrawingBuiltins.h"
#include "lisp/drawing/LispConversion.h"
#include "lisp/drawing/ScreenValues.h"
#include "lisp/eval/LispError.h"
#include "lisp/eval/LispPrinter.h"
#include "lisp/LispCall.h"
#include "lisp/LispFunctionTable.h"
#include "lisp/LispHooks.h"
#include "rx/Console.h"

#include "adscodes.h"

namespace {

DocumentData<LispSession>& sessions()
{
    static DocumentData<LispSession> ofDocuments;
    return ofDocuments;
}

/// Runs an evaluation, and ends the commands that it began.
LispOutcome settled(const std::function<LispOutcome()>& evaluation)
{
    const LispHooks& hooks = LispHooks::instance();
    const std::size_t before = hooks.pendingCommands ? hooks.pendingCommands() : 0;
    LispOutcome outcome = evaluation();
    if (hooks.settleCommands)
        hooks.settleCommands(before, outcome.failed);
    return outcome;
}

/// The function C:NAME of the current document, as a command.
std::function<std::wstring()> commandCalled(const std::wstring& name)
{
    AcApDocument* const document = curDoc();
    if (!document)
        return {};
    LispContext& context = LispSession::of(*document).context();
    const LispValue function = context.symbol(L"C:" + name).value;
    if (!function.lambda())
        return {};
    return [&context, function] {
        return settled([&] { return context.run([&] { return context.apply(function, {}); }); }).failureText();
    };
}

/// A selection set that a function gives, not one that it was given: it belongs to AutoLISP from now on.
bool isNewSelection(const resbuf* value, LispArguments arguments)
{
    if (!value || value->restype != RTPICKS)
        return false;
    return std::none_of(arguments.begin(), arguments.end(), [value](const LispValue& argument) {
        return argument.name() && argument.name()->words[0] == value->resval.rlname[0];
    });
}

} // namespace

LispSession& LispSession::of(AcApDocument& document)
{
    return sessions().of(document);
}

LispSession::LispSession()
{
    defineBuiltins(m_context);
    defineDrawingBuiltins(m_context);
    LispHooks::instance().findCommand = commandCalled;
    m_context.setTimeLimit(LispHooks::instance().timeLimit);
}

LispSession::Answer LispSession::evaluate(std::wstring_view text)
{
    std::wstring shown;
    LispOutcome outcome = settled([&] {
        return m_context.run([&] {
            LispValue value = m_context.evaluateText(text);
            shown = lispPrinted(value);
            return value;
        });
    });
    return {shown, std::move(outcome)};
}

void LispSession::print(const std::wstring& text)
{
    Console::instance().print(text);
}

bool LispSession::interrupted()
{
    const auto& asked = LispHooks::instance().interrupted;
    return asked && asked();
}

bool LispSession::hasFunction(const std::wstring& name)
{
    AcApDocument* const document = curDoc();
    return document && LispFunctionTable::of(*document).find(name);
}

LispValue LispSession::callFunction(LispContext& context, const std::wstring& name, LispArguments arguments)
{
    const LispResult result = callLispFunction(name, chainOf(context, arguments));
    if (!result.failure.empty())
        throw LispError(result.failure);
    if (isNewSelection(result.value.get(), arguments))
        return ownedSelection(result.value->resval.rlname);
    return valueOfChain(context, result.value.get());
}
