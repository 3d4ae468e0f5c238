#pragma once

#include <optional>
#include <string_view>

#include "gepnt3d.h"

/// How angles are typed: the system variables AUNITS, ANGBASE and ANGDIR.
struct AngleUnits {
    int unit = 0;
    double base = 0.0; ///< radians from the east: where the angle 0 points
    bool clockwise = false;

    static AngleUnits ofDrawing();
    /// A typed angle, counted from the base, counter-clockwise; within [0, 2π).
    std::optional<double> fromBase(std::wstring_view text) const;
    /// The same from the east.
    std::optional<double> fromEast(std::wstring_view text) const;
};

/// What a typed point is measured from.
struct PointFrame {
    AcGePoint3d last;       ///< "@": the system variable LASTPOINT
    double elevation = 0.0; ///< altitude of points typed without one
    AngleUnits angles;
    /// A length alone leads from the base towards the cursor; without them it is no point.
    std::optional<AcGePoint3d> base, cursor;

    static PointFrame ofDrawing();
};

/// A point as a user types it: x,y  x,y,z  d<a  d<a,z  d<a<b, with "@" in front from the last point, with "*" or "#"
/// from the origin of the world. Nothing for anything else.
std::optional<AcGePoint3d> typedPoint(std::wstring_view text, const PointFrame& frame);
