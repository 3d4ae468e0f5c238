#pragma once

#include <cstdint>

class AcDbHatch;

/// The colour half way between the ends of a gradient, 0xRRGGBB; -1 when its file tells none.
std::int32_t middleOfGradient(const AcDbHatch& hatch);
