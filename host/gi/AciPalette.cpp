#include "gi/AciPalette.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr std::uint32_t white = 0xFFFFFF;
constexpr std::uint32_t named[] = {white,    0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                                   0x0000FF, 0xFF00FF, white,    0x808080, 0xC0C0C0};
constexpr std::uint32_t greys[] = {0x333333, 0x5B5B5B, 0x848484, 0xADADAD, 0xD6D6D6, white};
constexpr double brightnesses[] = {1.0, 0.65, 0.5, 0.3, 0.15};
constexpr int firstHue = 10, firstGrey = 250, lastIndex = 255;

std::uint32_t hueColor(int index)
{
    const double hue = (index / 10 - 1) / 4.0; // in sixths of the circle
    const double brightness = brightnesses[index % 10 / 2] * 255.0;
    const double washed = index % 2 == 1 ? 0.5 : 0.0;
    std::uint32_t color = 0;
    for (const double peak : {0.0, 2.0, 4.0}) { // red, green, blue
        const double away = std::fabs(std::remainder(hue - peak, 6.0));
        const double share = std::clamp(2.0 - away, 0.0, 1.0);
        const double part = (share + (1.0 - share) * washed) * brightness;
        color = color << 8 | static_cast<std::uint32_t>(part);
    }
    return color;
}

std::array<std::uint32_t, lastIndex + 1> makePalette()
{
    std::array<std::uint32_t, lastIndex + 1> palette{};
    for (int i = 0; i <= lastIndex; ++i)
        palette[static_cast<std::size_t>(i)] = i < firstHue    ? named[i]
                                               : i < firstGrey ? hueColor(i)
                                                               : greys[i - firstGrey];
    return palette;
}

} // namespace

std::uint32_t aciColor(int index)
{
    static const auto palette = makePalette();
    return index >= 0 && index <= lastIndex ? palette[static_cast<std::size_t>(index)] : white;
}
