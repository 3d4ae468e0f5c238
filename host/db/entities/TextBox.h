#pragma once

#include <string_view>

#include "dbmain.h"

/// Where a text is reckoned to stand. Fonts are not looked into: a character is as wide as the text is high, times the
/// width factor.

/// Characters that a text shows, its control codes (%%d, %%c, %%p, %%nnn, %%u, %%o) counted as what they show.
std::size_t shownCharacters(std::wstring_view text);

/// Adds the four corners of a rectangle that is turned about its anchor, in the plane of `normal`.
/// `left`, `bottom`, `right`, `top` are distances from the anchor along the text and across it; `slant` is how far the
/// top leans forward for each unit of height.
struct TextBox {
    AcGePoint3d anchor; ///< in the coordinates of the plane
    double rotation = 0.0, slant = 0.0;
    double left = 0.0, bottom = 0.0, right = 0.0, top = 0.0;

    void addTo(AcDbExtents& extents, const AcGeVector3d& normal) const;
};
