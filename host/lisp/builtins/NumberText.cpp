// Numbers, lengths and angles as texts, in the units of the drawing unless a call names others.

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

#include "ge/Angles.h"
#include "lisp/builtins/Builtins.h"
#include "lisp/eval/LispArgument.h"
#include "lisp/eval/LispError.h"
#include "lisp/eval/LispNumber.h"
#include "lisp/eval/LispTexts.h"
#include "rx/TypedAngle.h"

#include "acedads.h"

namespace {

using lisp_argument::integer;
using lisp_argument::number;
using lisp_argument::text;

constexpr int kMostDecimals = 15;

int systemVariable(const wchar_t* name, int otherwise)
{
    resbuf buffer{};
    return acedGetVar(name, &buffer) == RTNORM && buffer.restype == RTSHORT ? buffer.resval.rint : otherwise;
}

/// An argument that may be left out: then the system variable counts.
int unitArgument(LispArguments arguments, std::size_t which, const wchar_t* variable, int least, int most)
{
    const int value = arguments.size() > which ? integer(arguments[which]) : systemVariable(variable, least);
    if (value < least || value > most)
        throw LispError(lisp_texts::outOfRange);
    return value;
}

int decimalsArgument(LispArguments arguments, std::size_t which, const wchar_t* variable)
{
    if (arguments.size() > which)
        return std::clamp(integer(arguments[which]), 0, kMostDecimals);
    return unitArgument(arguments, which, variable, 0, kMostDecimals);
}

std::wstring decimal(double value, int decimals, std::chars_format format = std::chars_format::fixed)
{
    char digits[400]; // the largest number has 309 digits before the point
    char* const end = std::to_chars(digits, digits + sizeof digits, value, format, decimals).ptr;
    std::wstring out(digits, end);
    std::replace(out.begin(), out.end(), L'e', L'E');
    return out;
}

// ---- lengths

/// 15 1/2: `precision` is the power of two of the smallest fraction.
std::wstring withFraction(double value, int precision)
{
    const double parts = std::exp2(precision);
    const double rounded = std::round(value * parts);
    const double whole = std::floor(rounded / parts);
    auto above = static_cast<std::int64_t>(rounded - whole * parts);
    auto below = static_cast<std::int64_t>(parts);
    if (above == 0)
        return decimal(whole, 0);
    for (; above % 2 == 0; above /= 2)
        below /= 2;
    const std::wstring fraction = std::to_wstring(above) + L"/" + std::to_wstring(below);
    return whole == 0.0 ? fraction : decimal(whole, 0) + L" " + fraction;
}

/// Feet and inches; the inches, already rounded, in the manner asked for.
std::wstring feetAndInches(double value, int precision, bool fractions)
{
    constexpr double inchesPerFoot = 12.0;
    const double step = fractions ? std::exp2(precision) : std::pow(10.0, precision);
    const double rounded = std::round(value * step) / step;
    const double feet = std::floor(rounded / inchesPerFoot);
    const double inches = rounded - feet * inchesPerFoot;
    const std::wstring text = (fractions ? withFraction(inches, precision) : decimal(inches, precision)) + L"\"";
    return feet == 0.0 ? text : decimal(feet, 0) + L"'-" + text;
}

std::wstring lengthText(double value, int unit, int precision)
{
    const double size = std::fabs(value);
    const std::wstring sign = std::signbit(value) && value != 0.0 ? L"-" : L"";
    switch (unit) {
    case 1:
        return sign + decimal(size, precision, std::chars_format::scientific);
    case 3:
        return sign + feetAndInches(size, precision, false);
    case 4:
        return sign + feetAndInches(size, precision, true);
    case 5:
        return sign + withFraction(size, precision);
    default:
        return sign + decimal(size, precision);
    }
}

/// Without the zeros that DIMZIN leaves out of decimal numbers: 4 before the point, 8 at the end.
std::wstring withoutZeros(std::wstring text)
{
    constexpr int leading = 4, trailing = 8;
    const int suppressed = systemVariable(L"DIMZIN", 0);
    if ((suppressed & trailing) != 0 && text.find(L'.') != std::wstring::npos) {
        text.erase(text.find_last_not_of(L'0') + 1);
        if (text.back() == L'.')
            text.pop_back();
    }
    const std::size_t first = text.starts_with(L'-') ? 1 : 0;
    if ((suppressed & leading) != 0 && text.compare(first, 2, L"0.") == 0)
        text.erase(first, 1);
    return text;
}

LispValue lengthToText(LispContext&, LispArguments arguments)
{
    constexpr int decimalUnit = 2;
    const double value = number(arguments[0]);
    const int unit = unitArgument(arguments, 1, L"LUNITS", 1, 5);
    const std::wstring length = lengthText(value, unit, decimalsArgument(arguments, 2, L"LUPREC"));
    return LispValue(unit == decimalUnit ? withoutZeros(length) : length);
}

// ---- angles

/// Degrees, minutes from a precision of 1, seconds from 3, their decimals from 5 on. Rounded before it is taken apart,
/// so that no 60 appears.
std::wstring degreesMinutesSeconds(double degrees, int precision)
{
    const int decimals = std::max(precision - 4, 0);
    const double secondStep = std::pow(10.0, decimals);
    const double step = precision == 0 ? 1.0 : precision <= 2 ? 60.0 : 3600.0 * secondStep;
    const double units = std::round(degrees * step);
    const double whole = std::floor(units / step);
    std::wstring out = decimal(whole, 0) + L"d";
    if (precision == 0)
        return out;
    const double minuteUnits = step / 60.0;
    const double rest = units - whole * step;
    const double minutes = std::floor(rest / minuteUnits);
    out += decimal(minutes, 0) + L"'";
    if (precision <= 2)
        return out;
    return out + decimal((rest - minutes * minuteUnits) / secondStep, decimals) + L"\"";
}

/// N 45d0' E: from the nearer of north and south. A whole quarter is its letter alone.
std::wstring surveyorText(double angle, int precision)
{
    const double degrees = angle * 180.0 / halfTurn;
    const double quarter = std::round(degrees / 90.0);
    if (std::fabs(degrees - quarter * 90.0) < 1e-9)
        return std::wstring(1, L"ENWS"[static_cast<int>(quarter) % 4]);
    const bool north = degrees < 180.0, east = degrees < 90.0 || degrees > 270.0;
    const double fromMeridian = std::fabs((north ? 90.0 : 270.0) - degrees);
    return (north ? L"N " : L"S ") + degreesMinutesSeconds(fromMeridian, precision) + (east ? L" E" : L" W");
}

std::wstring angleText(double angle, int unit, int precision)
{
    switch (unit) {
    case 1:
        return degreesMinutesSeconds(angle * 180.0 / halfTurn, precision);
    case 2:
        return decimal(angle * 200.0 / halfTurn, precision) + L"g";
    case 3:
        return decimal(angle, precision) + L"r";
    case 4:
        return surveyorText(angle, precision);
    default:
        return decimal(angle * 180.0 / halfTurn, precision);
    }
}

LispValue angleToText(LispContext&, LispArguments arguments)
{
    const double angle = inOneTurn(number(arguments[0]));
    const int unit = unitArgument(arguments, 1, L"AUNITS", 0, 4);
    return LispValue(angleText(angle, unit, decimalsArgument(arguments, 2, L"AUPREC")));
}

// ---- texts to numbers

/// Takes parts off the start of a text.
class TextCursor {
public:
    explicit TextCursor(std::wstring_view text) : m_text(text) {}

    bool atEnd()
    {
        skipBlanks();
        return m_text.empty();
    }
    bool take(wchar_t c)
    {
        skipBlanks();
        if (!m_text.starts_with(c))
            return false;
        m_text.remove_prefix(1);
        return true;
    }
    /// An unsigned decimal number.
    std::optional<double> takeNumber()
    {
        skipBlanks();
        const std::size_t length = std::min(m_text.find_first_not_of(L"0123456789."), m_text.size());
        const auto value = lispNumber(m_text.substr(0, length));
        if (value)
            m_text.remove_prefix(length);
        return value ? std::optional(value->number()) : std::nullopt;
    }

private:
    void skipBlanks() { m_text.remove_prefix(std::min(m_text.find_first_not_of(L" \t"), m_text.size())); }

    std::wstring_view m_text;
};

std::optional<double> divided(TextCursor& cursor, double above)
{
    const auto below = cursor.takeNumber();
    return below && *below != 0.0 ? std::optional(above / *below) : std::nullopt;
}

/// [feet'][-][inches][ fraction]["]
std::optional<double> feetInchesFraction(std::wstring_view written)
{
    TextCursor cursor(written);
    const bool negative = cursor.take(L'-');
    double total = 0.0;
    bool any = false;
    while (!cursor.atEnd() && !cursor.take(L'"')) {
        const auto part = cursor.takeNumber();
        if (!part)
            return std::nullopt;
        std::optional<double> value = part;
        if (cursor.take(L'\'')) {
            value = *part * 12.0;
            cursor.take(L'-');
        } else if (cursor.take(L'/')) {
            value = divided(cursor, *part);
        }
        if (!value)
            return std::nullopt;
        total += *value;
        any = true;
    }
    if (!any || !cursor.atEnd())
        return std::nullopt;
    return negative ? -total : total;
}

LispValue textToLength(LispContext&, LispArguments arguments)
{
    const std::wstring& written = text(arguments[0]);
    if (const auto plain = lispNumber(written))
        return LispValue(plain->number());
    const int unit = unitArgument(arguments, 1, L"LUNITS", 1, 5);
    const auto value = unit >= 3 ? feetInchesFraction(written) : std::nullopt;
    return value ? LispValue(*value) : LispValue();
}

/// A letter behind the number counts more than the unit.
LispValue textToAngle(LispContext&, LispArguments arguments)
{
    const auto angle = typedAngle(text(arguments[0]), unitArgument(arguments, 1, L"AUNITS", 0, 4));
    return angle ? LispValue(inOneTurn(*angle)) : LispValue();
}

LispValue textToReal(LispContext&, LispArguments arguments)
{
    return LispValue(leadingReal(text(arguments[0])));
}

LispValue textToInteger(LispContext&, LispArguments arguments)
{
    return LispValue(leadingInteger(text(arguments[0])));
}

LispValue integerToText(LispContext&, LispArguments arguments)
{
    return LispValue(std::to_wstring(integer(arguments[0])));
}

constexpr LispBuiltin kRows[] = {
    {L"ANGTOF", 1, 2, textToAngle}, {L"ANGTOS", 1, 3, angleToText},  {L"ATOF", 1, 1, textToReal},
    {L"ATOI", 1, 1, textToInteger}, {L"DISTOF", 1, 2, textToLength}, {L"ITOA", 1, 1, integerToText},
    {L"RTOS", 1, 3, lengthToText},
};

} // namespace

std::span<const LispBuiltin> numberTextBuiltins()
{
    return kRows;
}
