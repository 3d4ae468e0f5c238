#include "dxf/DxfAngle.h"

#include <charconv>
#include <cmath>
#include <iterator>

double dxfDegrees(double radians)
{
    constexpr int digits = 15; // as many as any decimal keeps through a double
    const double degrees = radians / dxfRadians(1.0);
    char text[32];
    const char* const end =
        std::to_chars(std::begin(text), std::end(text), degrees, std::chars_format::general, digits).ptr;
    double rounded = degrees;
    std::from_chars(text, end, rounded);
    const auto miss = [radians](double tried) { return std::abs(dxfRadians(tried) - radians); };
    return miss(rounded) <= miss(degrees) ? rounded : degrees;
}
