#pragma once

#include "gepnt3d.h"

/// How far from a curve a point may lie and still count as one of it, in drawing units.
inline bool liesOn(const AcGePoint3d& point, const AcGePoint3d& onCurve)
{
    return point.distanceTo(onCurve) <= 1e-6;
}
