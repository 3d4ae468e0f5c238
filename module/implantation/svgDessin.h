#pragma once

#include "implantation/dessinPlan.h"

/// The drawing as an SVG element of that width in pixels, for a page in Windows-1252; empty for nothing drawn.
std::string svgDe(const dessinPlan& dessin, int largeur);
