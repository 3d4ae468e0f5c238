#pragma once

#include "gelent2d.h"

/// An unbounded line of the plane.
class AcGeLine2d : public AcGeLinearEnt2d {
public:
    /// The X axis.
    AcGeLine2d() : AcGeLine2d(AcGePoint2d(0.0, 0.0), AcGeVector2d(1.0, 0.0)) {}
    AcGeLine2d(const AcGePoint2d& p, const AcGeVector2d& direction) : AcGeLinearEnt2d(p, direction.normal(), false) {}
    AcGeLine2d(const AcGePoint2d& p1, const AcGePoint2d& p2) : AcGeLine2d(p1, p2 - p1) {}

    AcGeLine2d& set(const AcGePoint2d& p, const AcGeVector2d& direction) { return *this = AcGeLine2d(p, direction); }
    AcGeLine2d& set(const AcGePoint2d& p1, const AcGePoint2d& p2) { return *this = AcGeLine2d(p1, p2); }
};
