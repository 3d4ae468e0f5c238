#include "ed/input/TypedPoint.h"

#include <cmath>
#include <vector>

#include "ed/SystemVariables.h"
#include "ge/Angles.h"
#include "rx/TypedAngle.h"
#include "rx/TypedNumber.h"

namespace {

template <class T>
T variable(const wchar_t* name)
{
    const auto value = SystemVariables::instance().value(name);
    const T* const held = value ? std::get_if<T>(&*value) : nullptr;
    return held ? *held : T();
}

std::wstring_view trimmed(std::wstring_view text)
{
    while (!text.empty() && text.front() == L' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == L' ')
        text.remove_suffix(1);
    return text;
}

std::vector<std::wstring_view> partsOf(std::wstring_view text, wchar_t separator)
{
    std::vector<std::wstring_view> parts;
    for (std::size_t start = 0, end = 0; end != std::wstring_view::npos; start = end + 1) {
        end = text.find(separator, start);
        parts.push_back(trimmed(text.substr(start, end == std::wstring_view::npos ? end : end - start)));
    }
    return parts;
}

/// A point, or a displacement, as three coordinates; the last one may be missing.
struct Coordinates {
    double x = 0.0, y = 0.0;
    std::optional<double> z;
};

std::optional<Coordinates> cartesian(std::wstring_view text)
{
    const auto parts = partsOf(text, L',');
    if (parts.size() < 2 || parts.size() > 3)
        return std::nullopt;
    const auto x = typedNumber(parts[0]), y = typedNumber(parts[1]);
    const auto z = parts.size() == 3 ? typedNumber(parts[2]) : std::nullopt;
    if (!x || !y || (parts.size() == 3 && !z))
        return std::nullopt;
    return Coordinates{*x, *y, z};
}

/// d<a, d<a,z and d<a<b: b is the angle above the plane.
std::optional<Coordinates> polar(std::wstring_view text, const AngleUnits& angles)
{
    const auto parts = partsOf(text, L'<');
    if (parts.size() < 2 || parts.size() > 3)
        return std::nullopt;
    const std::size_t comma = parts.back().find(L',');
    const bool hasHeight = comma != std::wstring_view::npos;
    const auto height = hasHeight ? typedNumber(trimmed(parts.back().substr(comma + 1))) : std::nullopt;
    if (hasHeight && (!height || parts.size() == 3))
        return std::nullopt;
    const auto distance = typedNumber(parts[0]);
    const auto direction = angles.fromEast(hasHeight ? trimmed(parts[1].substr(0, comma)) : parts[1]);
    if (!distance || !direction)
        return std::nullopt;
    Coordinates to{*distance * std::cos(*direction), *distance * std::sin(*direction), height};
    if (parts.size() == 2)
        return to;
    const auto above = typedAngle(parts[2], angles.unit);
    if (!above)
        return std::nullopt;
    return Coordinates{to.x * std::cos(*above), to.y * std::cos(*above), *distance * std::sin(*above)};
}

std::optional<AcGePoint3d> towardsCursor(std::wstring_view text, const PointFrame& frame)
{
    const auto distance = typedNumber(text);
    if (!distance || !frame.base || !frame.cursor)
        return std::nullopt;
    const AcGeVector3d direction = *frame.cursor - *frame.base;
    const double length = direction.length();
    return length > 0.0 ? std::optional(*frame.base + direction * (*distance / length)) : std::nullopt;
}

} // namespace

AngleUnits AngleUnits::ofDrawing()
{
    return {variable<short>(L"AUNITS"), variable<double>(L"ANGBASE"), variable<short>(L"ANGDIR") != 0};
}

std::optional<double> AngleUnits::fromBase(std::wstring_view text) const
{
    const auto typed = typedAngle(text, unit);
    return typed ? std::optional(inOneTurn(clockwise ? -*typed : *typed)) : std::nullopt;
}

std::optional<double> AngleUnits::fromEast(std::wstring_view text) const
{
    const auto turned = fromBase(text);
    return turned ? std::optional(inOneTurn(*turned + base)) : std::nullopt;
}

PointFrame PointFrame::ofDrawing()
{
    return {variable<AcGePoint3d>(L"LASTPOINT"), variable<double>(L"ELEVATION"), AngleUnits::ofDrawing(), {}, {}};
}

std::optional<AcGePoint3d> typedPoint(std::wstring_view text, const PointFrame& frame)
{
    text = trimmed(text);
    bool isRelative = false, isAbsolute = false;
    for (; !text.empty() && std::wstring_view(L"@*#").find(text.front()) != std::wstring_view::npos;
         text.remove_prefix(1))
        (text.front() == L'@' ? isRelative : isAbsolute) = true;
    if (text.empty())
        return isRelative ? std::optional(frame.last) : std::nullopt;
    const bool isPolar = text.find(L'<') != std::wstring_view::npos;
    const auto to = isPolar ? polar(text, frame.angles) : cartesian(text);
    if (!to)
        return isRelative || isAbsolute ? std::nullopt : towardsCursor(text, frame);
    if (isRelative)
        return AcGePoint3d(frame.last.x + to->x, frame.last.y + to->y, frame.last.z + to->z.value_or(0.0));
    return AcGePoint3d(to->x, to->y, to->z.value_or(frame.elevation));
}
