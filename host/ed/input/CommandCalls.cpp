// Commands run from code: acedCommandS, and (command ...) of AutoLISP.

#include <cstdarg>

#include "ed/CommandRunner.h"
#include "ed/input/CommandInputs.h"
#include "ed/input/EditorInput.h"
#include "ed/input/PendingCommands.h"
#include "rx/ResbufChain.h"

#include "acedCmdNF.h"

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
    const ResbufChain chain = builtChain(type, arguments);
    va_end(arguments);
    return chain || isEmpty ? acedCmdS(chain.get()) : RTERROR;
}
