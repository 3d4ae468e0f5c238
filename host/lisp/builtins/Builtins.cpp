#include "lisp/builtins/Builtins.h"

#include "lisp/eval/LispContext.h"

void defineBuiltins(LispContext& context)
{
    for (const auto& rows : {arithmeticBuiltins(), comparisonBuiltins(), listBuiltins(), sortingBuiltins(),
                             functionBuiltins(), symbolBuiltins(), textBuiltins(), numberTextBuiltins(),
                             geometryBuiltins(), outputBuiltins(), fileBuiltins(), fileNameBuiltins()})
        context.define(rows);
}
