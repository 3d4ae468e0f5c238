#pragma once

#include "dbmain.h"

/// A circular arc in the coordinates of its plane. Angles in radians from the plane's X axis; `turn` is signed.
struct PlaneArc {
    AcGePoint3d center;
    double radius, startAngle, turn;
};

/// Adds the exact box of an arc, whatever its plane; not its ends unless they are extremes of it.
void addArcExtents(AcDbExtents& extents, const PlaneArc& arc, const AcGeVector3d& normal);
