#pragma once

#include "geplane.h"

/// What lines and line segments of space share.
/// A point of parameter t is `origin + t · axis`. A line runs over every t and its axis is a unit vector;
/// a segment runs over [0, 1] and its axis goes from its start to its end.
class AcGeLinearEnt3d {
public:
    AcGePoint3d pointOnLine() const { return m_origin; }
    /// A unit vector; zero for a segment without length.
    AcGeVector3d direction() const { return m_axis.normal(); }
    AcGePoint3d evalPoint(double parameter) const { return m_origin + m_axis * parameter; }
    /// The parameter of the nearest point.
    double paramOf(const AcGePoint3d& p) const;

    AcGePoint3d closestPointTo(const AcGePoint3d& p) const { return evalPoint(paramOf(p)); }
    double distanceTo(const AcGePoint3d& p) const { return p.distanceTo(closestPointTo(p)); }
    Adesk::Boolean isOn(const AcGePoint3d& p, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return distanceTo(p) <= tol.equalPoint();
    }
    Adesk::Boolean isOn(const AcGePoint3d& p, double& parameter, const AcGeTol& tol = AcGeContext::gTol) const;
    /// Whether the parameter belongs to it: any for a line, 0 to 1 (ends within `tol.equalPoint()`) for a segment.
    Adesk::Boolean isOn(double parameter, const AcGeTol& tol = AcGeContext::gTol) const;
    Adesk::Boolean isParallelTo(const AcGeLinearEnt3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    Adesk::Boolean isPerpendicularTo(const AcGeLinearEnt3d& other, const AcGeTol& tol = AcGeContext::gTol) const;

    /// The one point that both hold, the ends of segments included (within `tol.equalPoint()`).
    /// @return kFalse, `point` untouched, when they are parallel (also when they overlap) or do not reach each other.
    Adesk::Boolean intersectWith(const AcGeLinearEnt3d& other, AcGePoint3d& point,
                                 const AcGeTol& tol = AcGeContext::gTol) const;
    /// Where it crosses the plane. @return kFalse, `point` untouched, when it lies along it or does not reach it.
    Adesk::Boolean intersectWith(const AcGePlane& plane, AcGePoint3d& point,
                                 const AcGeTol& tol = AcGeContext::gTol) const;

protected:
    AcGeLinearEnt3d(const AcGePoint3d& origin, const AcGeVector3d& axis, bool bounded) :
        m_origin(origin),
        m_axis(axis),
        m_bounded(bounded)
    {
    }

    AcGePoint3d m_origin;
    AcGeVector3d m_axis;
    bool m_bounded;
};
