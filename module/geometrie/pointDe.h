#pragma once

#include "geometrie/plan.h"

#include "gepnt3d.h"

/// A place of the drawing in our own coordinates.
inline point3 pointDe(const AcGePoint3d& p)
{
    return {p.x, p.y, p.z};
}
