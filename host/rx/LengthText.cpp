#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "acutads.h"

namespace {

constexpr int kScientific = 1;
constexpr int kDecimal = 2;

} // namespace

int acutRToS(ads_real value, int unit, int precision, ACHAR* text, std::size_t size)
{
    if ((unit != kScientific && unit != kDecimal) || precision < 0 || precision > 16 || !std::isfinite(value) || !text)
        return RTERROR;
    char digits[400]; // the largest number has 309 digits before the point
    const auto format = unit == kScientific ? std::chars_format::scientific : std::chars_format::fixed;
    char* const end = std::to_chars(digits, digits + sizeof digits, value, format, precision).ptr;
    const auto length = static_cast<std::size_t>(end - digits);
    if (length >= size)
        return RTERROR;
    std::transform(digits, end, text, [](char c) { return c == 'e' ? L'E' : static_cast<ACHAR>(c); });
    text[length] = L'\0';
    return RTNORM;
}
