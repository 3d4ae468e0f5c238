#include "lisp/drawing/DrawingBuiltins.h"

#include "lisp/eval/LispContext.h"

void defineDrawingBuiltins(LispContext& context)
{
    for (const auto& rows : {hostBuiltins(), entityBuiltins(), entityMakingBuiltins(), curveBuiltins(), tableBuiltins(),
                             dictionaryBuiltins(), inputBuiltins(), selectionBuiltins(), screenBuiltins()})
        context.define(rows);
    context.assign(context.symbol(L"PAUSE"), LispValue(L"\\"));
}
