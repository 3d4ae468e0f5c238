#include "lisp/builtins/Builtins.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispError.h"
#include "lisp/eval/LispTexts.h"

namespace {

using lisp_argument::items;
using lisp_argument::list;

constexpr int any = LispBuiltin::any;

LispValue apply(LispContext& context, LispArguments arguments)
{
    return context.apply(arguments[0], items(arguments[1]));
}

LispValue eval(LispContext& context, LispArguments arguments)
{
    return context.evaluate(arguments[0]);
}

/// Walks several lists abreast, to the end of the shortest. `use` gets the result of the function for each row of
/// items, and says whether to go on.
template <class Use>
void forEachRow(LispContext& context, const LispValue& named, LispArguments lists, Use use)
{
    const LispValue function = context.requireFunction(named);
    std::vector<const LispValue*> rests;
    for (const LispValue& one : lists)
        rests.push_back(&list(one));
    std::vector<LispValue> row(lists.size());
    for (;;) {
        for (std::size_t i = 0; i < rests.size(); ++i) {
            if (!rests[i]->isPair())
                return;
            row[i] = rests[i]->car();
            rests[i] = &rests[i]->cdr();
        }
        context.tick();
        if (!use(context.apply(function, row)))
            return;
    }
}

LispValue mapcar(LispContext& context, LispArguments arguments)
{
    std::vector<LispValue> results;
    forEachRow(context, arguments[0], arguments.subspan(1), [&results](LispValue value) {
        results.push_back(std::move(value));
        return true;
    });
    return listOf(results);
}

LispValue some(LispContext& context, LispArguments arguments)
{
    LispValue found;
    forEachRow(context, arguments[0], arguments.subspan(1), [&found](LispValue value) {
        found = std::move(value);
        return found.isNil();
    });
    return found;
}

LispValue every(LispContext& context, LispArguments arguments)
{
    bool holds = true;
    forEachRow(context, arguments[0], arguments.subspan(1), [&holds](const LispValue& value) {
        holds = !value.isNil();
        return holds;
    });
    return context.truth(holds);
}

LispValue kept(LispContext& context, LispArguments arguments, bool whenTrue)
{
    const LispValue function = context.requireFunction(arguments[0]);
    std::vector<LispValue> left;
    for (const LispValue& item : items(arguments[1]))
        if (context.apply(function, {&item, 1}).isNil() != whenTrue)
            left.push_back(item);
    return listOf(left);
}
LispValue removeIf(LispContext& context, LispArguments arguments)
{
    return kept(context, arguments, false);
}
LispValue removeIfNot(LispContext& context, LispArguments arguments)
{
    return kept(context, arguments, true);
}

/// The rest of a list from the first item that a function takes, or refuses.
LispValue restFrom(LispContext& context, LispArguments arguments, bool whenTrue)
{
    const LispValue function = context.requireFunction(arguments[0]);
    const LispValue* rest = &list(arguments[1]);
    for (; rest->isPair(); rest = &rest->cdr())
        if (context.apply(function, {&rest->car(), 1}).isNil() != whenTrue)
            return *rest;
    return {};
}
LispValue memberIf(LispContext& context, LispArguments arguments)
{
    return restFrom(context, arguments, true);
}
LispValue memberIfNot(LispContext& context, LispArguments arguments)
{
    return restFrom(context, arguments, false);
}

// ---- errors

LispValue catchAll(LispContext& context, LispArguments arguments)
{
    return context.applyCatching(arguments[0], arguments.size() > 1 ? items(arguments[1]) : std::vector<LispValue>());
}

LispValue isCaught(LispContext& context, LispArguments arguments)
{
    return context.truth(arguments[0].failure() != nullptr);
}

LispValue caughtMessage(LispContext&, LispArguments arguments)
{
    if (!arguments[0].failure())
        lisp_argument::refuse(L"vl-catch-all-error-p:", arguments[0]);
    return LispValue(arguments[0].failure()->message);
}

LispValue quit(LispContext&, LispArguments)
{
    throw LispError(lisp_texts::quit, LispError::Kind::quit);
}

constexpr LispBuiltin kRows[] = {
    {L"APPLY", 2, 2, apply},
    {L"EVAL", 1, 1, eval},
    {L"EXIT", 0, 0, quit},
    {L"MAPCAR", 2, any, mapcar},
    {L"QUIT", 0, 0, quit},
    {L"VL-CATCH-ALL-APPLY", 1, 2, catchAll},
    {L"VL-CATCH-ALL-ERROR-MESSAGE", 1, 1, caughtMessage},
    {L"VL-CATCH-ALL-ERROR-P", 1, 1, isCaught},
    {L"VL-EVERY", 2, any, every},
    {L"VL-MEMBER-IF", 2, 2, memberIf},
    {L"VL-MEMBER-IF-NOT", 2, 2, memberIfNot},
    {L"VL-REMOVE-IF", 2, 2, removeIf},
    {L"VL-REMOVE-IF-NOT", 2, 2, removeIfNot},
    {L"VL-SOME", 2, any, some},
};

} // namespace

std::span<const LispBuiltin> functionBuiltins()
{
    return kRows;
}
