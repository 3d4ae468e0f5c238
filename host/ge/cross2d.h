#pragma once

#include "gevec2d.h"

/// The area of the parallelogram of two vectors, positive when `b` lies counter-clockwise of `a`.
inline double crossOf(const AcGeVector2d& a, const AcGeVector2d& b)
{
    return a.x * b.y - a.y * b.x;
}
