#pragma once

#include <string>

#include "dbid.h"

/// How dimensions are drawn where no block shows them: sizes in drawing units.
struct DimensionStyle {
    double textHeight = 2.5, arrow = 2.5, offset = 0.625, beyond = 1.25, gap = 0.625;
    double factor = 1.0; ///< of lengths
    double rounding = 0.0;
    int decimals = 2, angleDecimals = 0;
    bool ticks = false;      ///< strokes in place of arrows
    bool dropsZeros = false; ///< at the end of decimals
    wchar_t decimalSign = L'.';
    std::wstring around; ///< "<> m": the measurement stands for <>

    /// A length as a dimension tells it.
    std::wstring length(double value) const;
    /// An angle in radians, told in degrees.
    std::wstring angle(double value) const;
};

/// That of a style of the drawing that an object belongs to, with what the object itself sets otherwise. Without a
/// style, that of the drawing's variables.
DimensionStyle dimensionStyleOf(AcDbObjectId entity, AcDbObjectId style);
DimensionStyle dimensionStyleNamed(AcDbObjectId entity, const std::wstring& name);
