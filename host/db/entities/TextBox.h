#pragma once

#include "dbmain.h"

class AcDbText;

/// Where a text stands, by the widths that it is painted with: extents, picture and picking agree.
/// A rectangle turned about its anchor, in the plane of the text. `left`, `bottom`, `right`, `top` are distances from
/// the anchor along the text and across it; a mirrored text runs from its left to a lesser right, or downwards.
struct TextBox {
    AcGePoint3d anchor;                 ///< in the coordinates of the plane
    double rotation = 0.0, slant = 0.0; ///< slant: how far a text leans forward for each unit of height
    double left = 0.0, bottom = 0.0, right = 0.0, top = 0.0;

    AcGeVector3d along() const; ///< of length 1, in the coordinates of the plane
    AcGeVector3d up() const;    ///< leaning; 1 high
    AcGePoint3d corner(double away, double above) const { return anchor + along() * away + up() * above; }
    /// Adds the four corners, in the plane of `normal`.
    void addTo(AcDbExtents& extents, const AcGeVector3d& normal) const;
};

/// The whole of a text, from its baseline to the height of its capitals, as wide as `width` (see TextMetrics.h).
/// Aligned and fitted texts fill the way between their two points: the former grow as a whole, the latter in width.
TextBox boxOf(const AcDbText& text, double width);
