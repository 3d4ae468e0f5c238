// acedGetSym and acedPutSym.

#include "lisp/drawing/LispConversion.h"
#include "lisp/drawing/LispSession.h"
#include "lisp/eval/LispError.h"

#include "acdocman.h"
#include "aced.h"

int acedGetSym(const ACHAR* name, resbuf** value)
{
    AcApDocument* const document = curDoc();
    if (!name || !*name || !value || !document)
        return RTERROR;
    LispContext& context = LispSession::of(*document).context();
    try {
        *value = chainOf(context, {&context.symbol(name).value, 1}).release();
    } catch (const LispError&) { // a function or a file has no result buffer
        return RTERROR;
    }
    return RTNORM;
}

int acedPutSym(const ACHAR* name, const resbuf* value)
{
    AcApDocument* const document = curDoc();
    if (!name || !document || std::wstring_view(name).find_first_of(L" ()'\";\n") != std::wstring_view::npos || !*name)
        return RTERROR;
    LispContext& context = LispSession::of(*document).context();
    try {
        context.assign(context.symbol(name), valueOfChain(context, value));
    } catch (const LispError&) { // a protected symbol
        return RTERROR;
    }
    return RTNORM;
}
