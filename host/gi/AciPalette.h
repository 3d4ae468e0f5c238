#pragma once

#include <cstdint>

/// Colours by index, 1 to 255, as 0xRRGGBB; any other index gives white.
/// 1 to 9 are named colours and greys; 10 to 249 are 24 hues, 15 degrees apart, each in five brightnesses, pure and
/// washed out by half; 250 to 255 are greys. Colour 7 is the one that turns with the ground: see Appearance.
std::uint32_t aciColor(int index);
