#include <cmath>

#include "lisp/builtins/Builtins.h"
#include "lisp/builtins/Equality.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"

bool lispEqual(LispContext& context, const LispValue& a, const LispValue& b, double fuzz)
{
    std::vector<std::pair<const LispValue*, const LispValue*>> left{{&a, &b}}; // still to compare
    while (!left.empty()) {
        const auto [one, other] = left.back();
        left.pop_back();
        context.tick();
        if (one->isPair() && other->isPair()) {
            if (one->pairAddress() == other->pairAddress())
                continue;
            left.emplace_back(&one->cdr(), &other->cdr());
            left.emplace_back(&one->car(), &other->car());
        } else if (one->isNumber() && other->isNumber()) {
            if (!(std::fabs(one->number() - other->number()) <= fuzz))
                return false;
        } else if (!one->isSame(*other)) {
            return false;
        }
    }
    return true;
}

namespace {

constexpr int any = LispBuiltin::any;

/// Whether `holds` for each argument and the next.
template <class Holds>
LispValue chained(LispContext& context, LispArguments arguments, Holds holds)
{
    for (std::size_t i = 1; i < arguments.size(); ++i)
        if (!holds(arguments[i - 1], arguments[i]))
            return {};
    return context.truth(true);
}

/// Negative, zero or positive; texts by the codes of their characters.
int order(const LispValue& a, const LispValue& b)
{
    if (a.isText() && b.isText())
        return a.text().compare(b.text());
    const double one = lisp_argument::number(a), other = lisp_argument::number(b);
    return one < other ? -1 : one > other ? 1 : 0;
}

LispValue same(LispContext& context, LispArguments arguments)
{
    return chained(context, arguments, [](const LispValue& a, const LispValue& b) { return a.isSame(b); });
}
LispValue different(LispContext& context, LispArguments arguments)
{
    return chained(context, arguments, [](const LispValue& a, const LispValue& b) { return !a.isSame(b); });
}
LispValue less(LispContext& context, LispArguments arguments)
{
    return chained(context, arguments, [](const LispValue& a, const LispValue& b) { return order(a, b) < 0; });
}
LispValue greater(LispContext& context, LispArguments arguments)
{
    return chained(context, arguments, [](const LispValue& a, const LispValue& b) { return order(a, b) > 0; });
}
LispValue atMost(LispContext& context, LispArguments arguments)
{
    return chained(context, arguments, [](const LispValue& a, const LispValue& b) { return order(a, b) <= 0; });
}
LispValue atLeast(LispContext& context, LispArguments arguments)
{
    return chained(context, arguments, [](const LispValue& a, const LispValue& b) { return order(a, b) >= 0; });
}

LispValue equal(LispContext& context, LispArguments arguments)
{
    const double fuzz = arguments.size() > 2 ? lisp_argument::number(arguments[2]) : 0.0;
    return context.truth(lispEqual(context, arguments[0], arguments[1], fuzz));
}

LispValue isNull(LispContext& context, LispArguments arguments)
{
    return context.truth(arguments[0].isNil());
}
LispValue isAtom(LispContext& context, LispArguments arguments)
{
    return context.truth(!arguments[0].isPair());
}
LispValue isList(LispContext& context, LispArguments arguments)
{
    return context.truth(arguments[0].isList());
}
LispValue isPair(LispContext& context, LispArguments arguments)
{
    return context.truth(arguments[0].isPair());
}
LispValue isNumber(LispContext& context, LispArguments arguments)
{
    return context.truth(arguments[0].isNumber());
}
LispValue isNegative(LispContext& context, LispArguments arguments)
{
    return context.truth(lisp_argument::number(arguments[0]) < 0);
}
LispValue isZero(LispContext& context, LispArguments arguments)
{
    return context.truth(lisp_argument::number(arguments[0]) == 0);
}

constexpr LispBuiltin kRows[] = {
    {L"/=", 1, any, different}, {L"<", 1, any, less},         {L"<=", 1, any, atMost},       {L"=", 1, any, same},
    {L">", 1, any, greater},    {L">=", 1, any, atLeast},     {L"ATOM", 1, 1, isAtom},       {L"EQ", 2, 2, same},
    {L"EQUAL", 2, 3, equal},    {L"LISTP", 1, 1, isList},     {L"MINUSP", 1, 1, isNegative}, {L"NOT", 1, 1, isNull},
    {L"NULL", 1, 1, isNull},    {L"NUMBERP", 1, 1, isNumber}, {L"VL-CONSP", 1, 1, isPair},   {L"ZEROP", 1, 1, isZero},
};

} // namespace

std::span<const LispBuiltin> comparisonBuiltins()
{
    return kRows;
}
