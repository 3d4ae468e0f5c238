#include <algorithm>

#include "lisp/builtins/Builtins.h"
#include "lisp/builtins/Equality.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"

namespace {

using lisp_argument::integer;
using lisp_argument::items;
using lisp_argument::list;

constexpr int any = LispBuiltin::any;

const LispValue& headOf(const LispValue& value)
{
    return list(value).isNil() ? value : value.car();
}
const LispValue& restOf(const LispValue& value)
{
    return list(value).isNil() ? value : value.cdr();
}

/// CAR, CDR, CADR...: the letters between C and R, the last one first.
template <char... letters>
LispValue path(LispContext&, LispArguments arguments)
{
    constexpr char steps[] = {letters...};
    const LispValue* value = &arguments[0];
    for (std::size_t i = sizeof...(letters); i-- > 0;)
        value = steps[i] == 'a' ? &headOf(*value) : &restOf(*value);
    return *value;
}

LispValue cons(LispContext&, LispArguments arguments)
{
    return LispValue::pair(arguments[0], arguments[1]);
}

LispValue makeList(LispContext&, LispArguments arguments)
{
    return listOf(arguments);
}

LispValue makeListOnto(LispContext&, LispArguments arguments)
{
    return listOf(arguments.first(arguments.size() - 1), arguments.back());
}

LispValue nth(LispContext&, LispArguments arguments)
{
    const LispValue* rest = &list(arguments[1]);
    for (std::int32_t left = integer(arguments[0]); left > 0 && rest->isPair(); --left)
        rest = &rest->cdr();
    return rest->isPair() ? rest->car() : LispValue();
}

LispValue last(LispContext&, LispArguments arguments)
{
    const LispValue* rest = &list(arguments[0]);
    while (rest->isPair() && rest->cdr().isPair())
        rest = &rest->cdr();
    return rest->isPair() ? rest->car() : LispValue();
}

LispValue length(LispContext&, LispArguments arguments)
{
    return LispValue(static_cast<std::int32_t>(items(arguments[0]).size()));
}

/// nil for a list that does not end with nil.
LispValue properLength(LispContext&, LispArguments arguments)
{
    std::int32_t count = 0;
    const LispValue* rest = &list(arguments[0]);
    for (; rest->isPair(); rest = &rest->cdr())
        ++count;
    return rest->isNil() ? LispValue(count) : LispValue();
}

LispValue append(LispContext&, LispArguments arguments)
{
    if (arguments.empty())
        return {};
    std::vector<LispValue> all;
    for (const LispValue& argument : arguments.first(arguments.size() - 1)) {
        const std::vector<LispValue> part = items(argument);
        all.insert(all.end(), part.begin(), part.end());
    }
    return listOf(all, arguments.back());
}

LispValue reverse(LispContext&, LispArguments arguments)
{
    std::vector<LispValue> all = items(arguments[0]);
    std::reverse(all.begin(), all.end());
    return listOf(all);
}

LispValue member(LispContext& context, LispArguments arguments)
{
    const LispValue* rest = &list(arguments[1]);
    for (; rest->isPair(); rest = &rest->cdr())
        if (lispEqual(context, arguments[0], rest->car()))
            return *rest;
    return {};
}

LispValue assoc(LispContext& context, LispArguments arguments)
{
    const LispValue* rest = &list(arguments[1]);
    for (; rest->isPair(); rest = &rest->cdr())
        if (!rest->car().isNil() && lispEqual(context, arguments[0], headOf(rest->car())))
            return rest->car();
    return {};
}

/// The items of each list are looked through one after the other: only nesting goes deeper.
LispValue substituted(LispContext& context, const LispValue& by, const LispValue& old, const LispValue& in)
{
    context.checkStack();
    std::vector<LispValue> all;
    const LispValue* rest = &in;
    for (; !lispEqual(context, *rest, old); rest = &rest->cdr()) {
        if (!rest->isPair())
            return listOf(all, *rest);
        const LispValue& item = rest->car();
        all.push_back(item.isPair() ? substituted(context, by, old, item) : lispEqual(context, item, old) ? by : item);
    }
    return listOf(all, by);
}

LispValue subst(LispContext& context, LispArguments arguments)
{
    return substituted(context, arguments[0], arguments[1], arguments[2]);
}

LispValue position(LispContext& context, LispArguments arguments)
{
    std::int32_t at = 0;
    const LispValue* rest = &list(arguments[1]);
    for (; rest->isPair(); rest = &rest->cdr(), ++at)
        if (lispEqual(context, arguments[0], rest->car()))
            return LispValue(at);
    return {};
}

LispValue remove(LispContext& context, LispArguments arguments)
{
    std::vector<LispValue> kept = items(arguments[1]);
    std::erase_if(kept, [&](const LispValue& item) { return lispEqual(context, arguments[0], item); });
    return listOf(kept);
}

constexpr LispBuiltin kRows[] = {
    {L"APPEND", 0, any, append},
    {L"ASSOC", 2, 2, assoc},
    {L"CAAAAR", 1, 1, path<'a', 'a', 'a', 'a'>},
    {L"CAAADR", 1, 1, path<'a', 'a', 'a', 'd'>},
    {L"CAAAR", 1, 1, path<'a', 'a', 'a'>},
    {L"CAADAR", 1, 1, path<'a', 'a', 'd', 'a'>},
    {L"CAADDR", 1, 1, path<'a', 'a', 'd', 'd'>},
    {L"CAADR", 1, 1, path<'a', 'a', 'd'>},
    {L"CAAR", 1, 1, path<'a', 'a'>},
    {L"CADAAR", 1, 1, path<'a', 'd', 'a', 'a'>},
    {L"CADADR", 1, 1, path<'a', 'd', 'a', 'd'>},
    {L"CADAR", 1, 1, path<'a', 'd', 'a'>},
    {L"CADDAR", 1, 1, path<'a', 'd', 'd', 'a'>},
    {L"CADDDR", 1, 1, path<'a', 'd', 'd', 'd'>},
    {L"CADDR", 1, 1, path<'a', 'd', 'd'>},
    {L"CADR", 1, 1, path<'a', 'd'>},
    {L"CAR", 1, 1, path<'a'>},
    {L"CDAAAR", 1, 1, path<'d', 'a', 'a', 'a'>},
    {L"CDAADR", 1, 1, path<'d', 'a', 'a', 'd'>},
    {L"CDAAR", 1, 1, path<'d', 'a', 'a'>},
    {L"CDADAR", 1, 1, path<'d', 'a', 'd', 'a'>},
    {L"CDADDR", 1, 1, path<'d', 'a', 'd', 'd'>},
    {L"CDADR", 1, 1, path<'d', 'a', 'd'>},
    {L"CDAR", 1, 1, path<'d', 'a'>},
    {L"CDDAAR", 1, 1, path<'d', 'd', 'a', 'a'>},
    {L"CDDADR", 1, 1, path<'d', 'd', 'a', 'd'>},
    {L"CDDAR", 1, 1, path<'d', 'd', 'a'>},
    {L"CDDDAR", 1, 1, path<'d', 'd', 'd', 'a'>},
    {L"CDDDDR", 1, 1, path<'d', 'd', 'd', 'd'>},
    {L"CDDDR", 1, 1, path<'d', 'd', 'd'>},
    {L"CDDR", 1, 1, path<'d', 'd'>},
    {L"CDR", 1, 1, path<'d'>},
    {L"CONS", 2, 2, cons},
    {L"LAST", 1, 1, last},
    {L"LENGTH", 1, 1, length},
    {L"LIST", 0, any, makeList},
    {L"MEMBER", 2, 2, member},
    {L"NTH", 2, 2, nth},
    {L"REVERSE", 1, 1, reverse},
    {L"SUBST", 3, 3, subst},
    {L"VL-LIST*", 1, any, makeListOnto},
    {L"VL-LIST-LENGTH", 1, 1, properLength},
    {L"VL-POSITION", 2, 2, position},
    {L"VL-REMOVE", 2, 2, remove},
};

} // namespace

std::span<const LispBuiltin> listBuiltins()
{
    return kRows;
}
