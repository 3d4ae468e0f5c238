// Commands run from code: acedCommandS, and (command ...) of AutoLISP.

#include <cstdarg>

#include "ed/CommandRunner.h"
#include "ed/input/CommandInputs.h"
#include "ed/input/EditorInput.h"
#include "ed/input/PendingCommands.h"
#include "rx/ResbufKind.h"

#include "acedCmdNF.h"

namespace {

/// Reads pairs of a type and a value into a chain; null when a type is not known.
ResbufChain chainOf(int type, std::va_list& arguments)
{
    ResbufChain chain;
    resbuf* last = nullptr;
    for (; type != 0 && type != RTNONE; type = va_arg(arguments, int)) {
        resbuf* item = nullptr;
        switch (resbufKind(type)) {
        case ResbufKind::text:
            item = acutBuildList(type, va_arg(arguments, const ACHAR*), 0);
            break;
        case ResbufKind::real:
            item = acutBuildList(type, va_arg(arguments, double), 0);
            break;
        case ResbufKind::int16:
            item = acutBuildList(type, va_arg(arguments, int), 0);
            break;
        case ResbufKind::int32:
            item = acutBuildList(type, va_arg(arguments, long), 0);
            break;
        case ResbufKind::point:
        case ResbufKind::name:
            item = acutBuildList(type, va_arg(arguments, const void*), 0);
            break;
        case ResbufKind::none:
            item = acutBuildList(type, 0);
            break;
        default:
            break;
        }
        if (!item)
            return nullptr;
        if (last)
            last->rbnext = item;
        else
            chain.reset(item);
        last = item;
    }
    return chain;
}

} // namespace

int acedCmdS(const resbuf* chain)
{
    if (!curDoc())
        return RTERROR;
    CommandInputs inputs;
    inputs.add(chain);
    const EditorInput::Source source(inputs);
    bool failed = false;
    while (!inputs.empty() && !inputs.ranOut()) {
        const std::wstring name = inputs.takeName();
        if (!name.empty())
            failed = !CommandRunner::instance().run(name, CommandRunner::CalledBy::code).failure.empty() || failed;
    }
    return failed || inputs.ranOut() || inputs.wasRefused() ? RTERROR : RTNORM;
}

int acedCommandS(int type, ...)
{
    std::va_list arguments;
    va_start(arguments, type);
    const bool isEmpty = type == 0 || type == RTNONE;
    const ResbufChain chain = chainOf(type, arguments);
    va_end(arguments);
    return chain || isEmpty ? acedCmdS(chain.get()) : RTERROR;
}
