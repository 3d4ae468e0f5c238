#pragma once

#include "gepnt2d.h"

/// What lines and line segments of the plane share.
/// A point of parameter t is `origin + t · axis`. A line runs over every t and its axis is a unit vector;
/// a segment runs over [0, 1] and its axis goes from its start to its end.
class AcGeLinearEnt2d {
public:
    AcGePoint2d pointOnLine() const { return m_origin; }
    /// A unit vector; zero for a segment without length.
    AcGeVector2d direction() const { return m_axis.normal(); }
    AcGePoint2d evalPoint(double parameter) const { return m_origin + m_axis * parameter; }
    /// The parameter of the nearest point.
    double paramOf(const AcGePoint2d& p) const;

    AcGePoint2d closestPointTo(const AcGePoint2d& p) const { return evalPoint(paramOf(p)); }
    double distanceTo(const AcGePoint2d& p) const { return p.distanceTo(closestPointTo(p)); }
    Adesk::Boolean isOn(const AcGePoint2d& p, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return distanceTo(p) <= tol.equalPoint();
    }
    Adesk::Boolean isOn(const AcGePoint2d& p, double& parameter, const AcGeTol& tol = AcGeContext::gTol) const;
    /// Whether the parameter belongs to it: any for a line, 0 to 1 (ends within `tol.equalPoint()`) for a segment.
    Adesk::Boolean isOn(double parameter, const AcGeTol& tol = AcGeContext::gTol) const;
    Adesk::Boolean isParallelTo(const AcGeLinearEnt2d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    Adesk::Boolean isPerpendicularTo(const AcGeLinearEnt2d& other, const AcGeTol& tol = AcGeContext::gTol) const;

    /// The one point that both hold, the ends of segments included (within `tol.equalPoint()`).
    /// @return kFalse, `point` untouched, when they are parallel (also when they overlap) or do not reach each other.
    Adesk::Boolean intersectWith(const AcGeLinearEnt2d& other, AcGePoint2d& point,
                                 const AcGeTol& tol = AcGeContext::gTol) const;

protected:
    AcGeLinearEnt2d(const AcGePoint2d& origin, const AcGeVector2d& axis, bool bounded) :
        m_origin(origin),
        m_axis(axis),
        m_bounded(bounded)
    {
    }

    AcGePoint2d m_origin;
    AcGeVector2d m_axis;
    bool m_bounded;
};
