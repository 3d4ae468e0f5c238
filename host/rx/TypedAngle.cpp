#include "rx/TypedAngle.h"

#include <cmath>

#include "ge/Angles.h"
#include "rx/TypedNumber.h"

namespace {

enum Unit { degrees, degreesMinutesSeconds, grads, radians, surveyor };

/// Takes an unsigned number from the front of a text.
std::optional<double> takeNumber(std::wstring_view& text)
{
    const std::size_t length = std::min(text.find_first_not_of(L"0123456789."), text.size());
    const auto value = typedNumber(text.substr(0, length));
    if (value)
        text.remove_prefix(length);
    return value;
}

bool take(std::wstring_view& text, std::wstring_view marks)
{
    if (text.empty() || marks.find(text.front()) == std::wstring_view::npos)
        return false;
    text.remove_prefix(1);
    return true;
}

/// 12d30'15": what stands behind the degrees may be left out from the end.
std::optional<double> degreesOf(std::wstring_view text)
{
    const bool isNegative = take(text, L"-");
    if (!isNegative)
        take(text, L"+");
    const auto whole = takeNumber(text);
    if (!whole)
        return std::nullopt;
    double total = *whole;
    if (take(text, L"dD°")) {
        for (const auto& [mark, share] : {std::pair(L"'", 60.0), std::pair(L"\"", 3600.0)}) {
            if (text.empty())
                break;
            const auto part = takeNumber(text);
            if (!part || !take(text, mark))
                return std::nullopt;
            total += *part / share;
        }
    }
    if (!text.empty())
        return std::nullopt;
    return isNegative ? -total : total;
}

/// North or south, an angle, east or west; or one of the four alone.
std::optional<double> bearingOf(std::wstring_view text)
{
    constexpr std::wstring_view west = L"WwOo";
    if (text.size() == 1) {
        if (take(text, L"Nn"))
            return quarterTurn;
        if (take(text, L"Ss"))
            return 3.0 * quarterTurn;
        if (take(text, L"Ee"))
            return 0.0;
        return take(text, west) ? std::optional(halfTurn) : std::nullopt;
    }
    const bool isNorth = take(text, L"Nn");
    if ((!isNorth && !take(text, L"Ss")) || text.empty())
        return std::nullopt;
    const bool isWest = west.find(text.back()) != std::wstring_view::npos;
    if (!isWest && text.back() != L'E' && text.back() != L'e')
        return std::nullopt;
    const auto turned = degreesOf(text.substr(0, text.size() - 1));
    if (!turned || *turned < 0.0 || *turned > 90.0)
        return std::nullopt;
    const double fromNorth = isWest ? *turned * oneDegree : -*turned * oneDegree;
    return isNorth ? quarterTurn + fromNorth : 3.0 * quarterTurn - fromNorth;
}

} // namespace

std::optional<double> typedAngle(std::wstring_view text, int unit)
{
    if (const auto bearing = bearingOf(text))
        return bearing;
    if (text.ends_with(L'g') || text.ends_with(L'G')) {
        unit = grads;
        text.remove_suffix(1);
    } else if (text.ends_with(L'r') || text.ends_with(L'R')) {
        unit = radians;
        text.remove_suffix(1);
    }
    if (unit == grads || unit == radians) {
        if (const auto value = typedNumber(text))
            return *value * (unit == grads ? oneGrad : 1.0);
        unit = degrees; // one with marks of degrees
        if (text.find_first_of(L"dD°") == std::wstring_view::npos)
            return std::nullopt;
    }
    if (const auto value = typedNumber(text))
        return *value * oneDegree;
    const auto value = degreesOf(text);
    return value ? std::optional(*value * oneDegree) : std::nullopt;
}
