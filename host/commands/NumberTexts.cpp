#include "commands/NumberTexts.h"

#include <array>
#include <cmath>

#include "commands/Variables.h"
#include "ge/Angles.h"

#include "acutads.h"

namespace {

std::wstring decimals(double value, int count)
{
    std::array<ACHAR, 512> text{};
    const double shown = value == 0.0 ? 0.0 : value; // no "-0"
    return acutRToS(shown, 2, count, text.data(), text.size()) == RTNORM ? std::wstring(text.data()) : L"?";
}

constexpr short kGrads = 2, kRadians = 3;

/// In the unit of the drawing: degrees, grads or radians.
std::wstring inUnit(double radians)
{
    const short unit = variable<short>(L"AUNITS");
    const wchar_t* const mark = unit == kGrads ? L"g" : unit == kRadians ? L"r" : L"";
    return decimals(radians / angleUnit(), variable<short>(L"AUPREC")) + mark;
}

} // namespace

double angleUnit()
{
    const short unit = variable<short>(L"AUNITS");
    return unit == kRadians ? 1.0 : wholeTurn / (unit == kGrads ? 400.0 : 360.0);
}

std::wstring lengthText(double length)
{
    return decimals(length, variable<short>(L"LUPREC"));
}

std::wstring directionText(double angle)
{
    const bool clockwise = variable<short>(L"ANGDIR") != 0;
    const double counted = angle - variable<double>(L"ANGBASE");
    const double turned = std::fmod(clockwise ? -counted : counted, wholeTurn);
    return inUnit(turned < 0.0 ? turned + wholeTurn : turned);
}

std::wstring angleText(double angle)
{
    return inUnit(angle);
}

std::wstring pointText(const AcGePoint3d& point)
{
    return L"X = " + lengthText(point.x) + L"  Y = " + lengthText(point.y) + L"  Z = " + lengthText(point.z);
}

std::wstring countText(std::size_t count, const wchar_t* noun)
{
    return std::to_wstring(count) + L" " + noun + (count > 1 ? L"s" : L"");
}

std::wstring bearingText(double east, double north)
{
    constexpr double turn = 400.0, pi = 3.141592653589793;
    const double grades = std::atan2(east, north) * (turn / 2.0) / pi;
    wchar_t text[32];
    std::swprintf(text, std::size(text), L"%.4f gr", grades < 0.0 ? grades + turn : grades);
    return text;
}
