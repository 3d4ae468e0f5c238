#pragma once

#include "gelent3d.h"

/// An unbounded line of space.
class AcGeLine3d : public AcGeLinearEnt3d {
public:
    /// The X axis.
    AcGeLine3d() : AcGeLine3d(AcGePoint3d(0.0, 0.0, 0.0), AcGeVector3d(1.0, 0.0, 0.0)) {}
    AcGeLine3d(const AcGePoint3d& p, const AcGeVector3d& direction) : AcGeLinearEnt3d(p, direction.normal(), false) {}
    AcGeLine3d(const AcGePoint3d& p1, const AcGePoint3d& p2) : AcGeLine3d(p1, p2 - p1) {}

    AcGeLine3d& set(const AcGePoint3d& p, const AcGeVector3d& direction) { return *this = AcGeLine3d(p, direction); }
    AcGeLine3d& set(const AcGePoint3d& p1, const AcGePoint3d& p2) { return *this = AcGeLine3d(p1, p2); }
};
