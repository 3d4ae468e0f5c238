#pragma once

#include "implantation/dessinPlan.h"

/// The drawing as an SVG element whose longer side has that many pixels, for a page in Windows-1252; empty for nothing
/// drawn.
std::string svgDe(const dessinPlan& dessin, int cote);
