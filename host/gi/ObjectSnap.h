#pragma once

#include <optional>

#include "gi/Scene.h"

/// Kinds of object snap; the values are those of the system variable OSMODE.
enum class SnapKind : unsigned {
    end = 1,
    middle = 2,
    center = 4,
    node = 8,
    quadrant = 16,
    intersection = 32,
    insertion = 64,
    perpendicular = 128,
    nearest = 512,
};

struct SnapPoint {
    SnapKind kind;
    AcGePoint3d point;   ///< of the world, with its altitude
    AcDbObjectId entity; ///< of the scene
};

/// The point that the cursor snaps to: of those within `aperture` (drawing units) the nearest one; `nearest` and
/// `perpendicular` give way to the others. A centre is also found from its curve.
/// @param kinds sum of SnapKind values
/// @param from the last point given, which `perpendicular` starts from; null for none
std::optional<SnapPoint> snapAt(Scene& scene, const AcGePoint2d& cursor, double aperture, unsigned kinds,
                                const AcGePoint3d* from = nullptr);
