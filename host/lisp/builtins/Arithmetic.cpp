#include <algorithm>
#include <cmath>
#include <numeric>

#include "lisp/builtins/Builtins.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispContext.h"
#include "lisp/eval/LispError.h"
#include "lisp/eval/LispNumber.h"
#include "lisp/eval/LispTexts.h"

namespace {

using lisp_argument::integer;
using lisp_argument::number;

constexpr int any = LispBuiltin::any;

LispValue finite(double value)
{
    if (!std::isfinite(value))
        throw LispError(lisp_texts::outOfRange);
    return LispValue(value);
}

bool hasReal(LispArguments arguments)
{
    bool found = false;
    for (const LispValue& argument : arguments) {
        number(argument); // refused otherwise
        found = found || argument.isReal();
    }
    return found;
}

/// Combines the arguments from left to right: as integers while the result is one, else as reals. One real among them
/// makes all of them reals.
template <class Integers, class Reals>
LispValue combined(LispArguments arguments, Integers integers, Reals reals)
{
    if (arguments.empty())
        return LispValue(0);
    LispValue result = hasReal(arguments) ? LispValue(arguments[0].number()) : arguments[0];
    for (const LispValue& argument : arguments.subspan(1))
        result = result.isInteger() && argument.isInteger()
                     ? lispInteger(integers(std::int64_t{result.integer()}, std::int64_t{argument.integer()}))
                     : finite(reals(result.number(), argument.number()));
    return result;
}

template <class Number>
Number nonZero(Number divisor)
{
    if (divisor == 0)
        throw LispError(lisp_texts::divisionByZero);
    return divisor;
}

LispValue add(LispContext&, LispArguments arguments)
{
    return combined(arguments, std::plus(), std::plus());
}

LispValue subtract(LispContext&, LispArguments arguments)
{
    if (arguments.size() == 1)
        return arguments[0].isInteger() ? lispInteger(-std::int64_t{arguments[0].integer()})
                                        : LispValue(-number(arguments[0]));
    return combined(arguments, std::minus(), std::minus());
}

LispValue multiply(LispContext&, LispArguments arguments)
{
    return combined(arguments, std::multiplies(), std::multiplies());
}

LispValue divide(LispContext&, LispArguments arguments)
{
    return combined(
        arguments, [](std::int64_t a, std::int64_t b) { return a / nonZero(b); },
        [](double a, double b) { return a / nonZero(b); });
}

LispValue remainder(LispContext&, LispArguments arguments)
{
    return combined(
        arguments, [](std::int64_t a, std::int64_t b) { return a % nonZero(b); },
        [](double a, double b) { return std::fmod(a, nonZero(b)); });
}

template <int step>
LispValue stepped(LispContext&, LispArguments arguments)
{
    if (arguments[0].isInteger())
        return lispInteger(std::int64_t{arguments[0].integer()} + step);
    return finite(number(arguments[0]) + step);
}

LispValue smallest(LispContext&, LispArguments arguments)
{
    return combined(
        arguments, [](std::int64_t a, std::int64_t b) { return std::min(a, b); },
        [](double a, double b) { return std::min(a, b); });
}

LispValue greatest(LispContext&, LispArguments arguments)
{
    return combined(
        arguments, [](std::int64_t a, std::int64_t b) { return std::max(a, b); },
        [](double a, double b) { return std::max(a, b); });
}

LispValue absolute(LispContext&, LispArguments arguments)
{
    if (arguments[0].isInteger())
        return lispInteger(std::abs(std::int64_t{arguments[0].integer()}));
    return LispValue(std::fabs(number(arguments[0])));
}

LispValue greatestDivisor(LispContext&, LispArguments arguments)
{
    return lispInteger(std::gcd(std::int64_t{integer(arguments[0])}, std::int64_t{integer(arguments[1])}));
}

template <double (*compute)(double)>
LispValue realFunction(LispContext&, LispArguments arguments)
{
    return finite(compute(number(arguments[0])));
}

LispValue arcTangent(LispContext&, LispArguments arguments)
{
    const double y = number(arguments[0]);
    return LispValue(arguments.size() == 1 ? std::atan(y) : std::atan2(y, number(arguments[1])));
}

/// An integer to an integer that is not negative is exact as far as 32 bits go.
LispValue power(LispContext&, LispArguments arguments)
{
    const double result = finite(std::pow(number(arguments[0]), number(arguments[1]))).real();
    const bool whole = arguments[0].isInteger() && arguments[1].isInteger() && arguments[1].integer() >= 0;
    return whole && std::fabs(result) < 4e9 ? lispInteger(std::llround(result)) : LispValue(result);
}

/// Towards zero; a real that no integer holds stays one.
LispValue fix(LispContext&, LispArguments arguments)
{
    const double whole = std::trunc(number(arguments[0]));
    return std::fabs(whole) < 4e9 ? lispInteger(static_cast<std::int64_t>(whole)) : LispValue(whole);
}

LispValue toReal(LispContext&, LispArguments arguments)
{
    return LispValue(number(arguments[0]));
}

// ---- bits

template <class Operation>
LispValue bitwise(LispArguments arguments, Operation operation)
{
    if (arguments.empty())
        return LispValue(0);
    std::int32_t result = integer(arguments[0]);
    for (const LispValue& argument : arguments.subspan(1))
        result = operation(result, integer(argument));
    return LispValue(result);
}

LispValue bitAnd(LispContext&, LispArguments arguments)
{
    return bitwise(arguments, std::bit_and());
}
LispValue bitOr(LispContext&, LispArguments arguments)
{
    return bitwise(arguments, std::bit_or());
}
LispValue bitNot(LispContext&, LispArguments arguments)
{
    return LispValue(~integer(arguments[0]));
}

/// To the left for a positive count; bits that leave are lost, zeros come in.
LispValue shift(LispContext&, LispArguments arguments)
{
    const auto bits = static_cast<std::uint32_t>(integer(arguments[0]));
    const std::int32_t count = integer(arguments[1]);
    if (count <= -32 || count >= 32)
        return LispValue(0);
    return LispValue(static_cast<std::int32_t>(count >= 0 ? bits << count : bits >> -count));
}

/// The bits of the first argument say which pairs of bits give 1: 1 for 1 and 1, 2 for 1 and 0, 4 for 0 and 1, 8 for
/// 0 and 0.
LispValue boole(LispContext&, LispArguments arguments)
{
    const std::int32_t which = integer(arguments[0]);
    return bitwise(arguments.subspan(1), [which](std::int32_t a, std::int32_t b) {
        return ((which & 1) != 0 ? a & b : 0) | ((which & 2) != 0 ? a & ~b : 0) | ((which & 4) != 0 ? ~a & b : 0) |
               ((which & 8) != 0 ? ~a & ~b : 0);
    });
}

constexpr LispBuiltin kRows[] = {
    {L"*", 0, any, multiply},
    {L"+", 0, any, add},
    {L"-", 0, any, subtract},
    {L"/", 0, any, divide},
    {L"1+", 1, 1, stepped<1>},
    {L"1-", 1, 1, stepped<-1>},
    {L"ABS", 1, 1, absolute},
    {L"ATAN", 1, 2, arcTangent},
    {L"BOOLE", 2, any, boole},
    {L"COS", 1, 1, realFunction<std::cos>},
    {L"EXP", 1, 1, realFunction<std::exp>},
    {L"EXPT", 2, 2, power},
    {L"FIX", 1, 1, fix},
    {L"FLOAT", 1, 1, toReal},
    {L"GCD", 2, 2, greatestDivisor},
    {L"LOG", 1, 1, realFunction<std::log>},
    {L"LOGAND", 0, any, bitAnd},
    {L"LOGIOR", 0, any, bitOr},
    {L"LSH", 2, 2, shift},
    {L"MAX", 0, any, greatest},
    {L"MIN", 0, any, smallest},
    {L"REM", 0, any, remainder},
    {L"SIN", 1, 1, realFunction<std::sin>},
    {L"SQRT", 1, 1, realFunction<std::sqrt>},
    {L"~", 1, 1, bitNot},
};

} // namespace

std::span<const LispBuiltin> arithmeticBuiltins()
{
    return kRows;
}
