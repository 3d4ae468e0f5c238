#pragma once

#include "gelent2d.h"
#include "gept2dar.h"

/// A circular arc of the plane.
/// Its parameter is the angle, in radians, turned from the reference vector in the sense of travel: from
/// `startAng()` to `endAng()`, which is never below it. A whole circle runs from 0 to 2π.
class AcGeCircArc2d {
public:
    /// The whole unit circle about the origin.
    AcGeCircArc2d() = default;
    AcGeCircArc2d(const AcGePoint2d& center, double radius);
    /// Angles in the sense of travel from `refVec`; an end angle not above the start angle is raised by whole turns.
    AcGeCircArc2d(const AcGePoint2d& center, double radius, double startAngle, double endAngle,
                  const AcGeVector2d& refVec = AcGeVector2d(1.0, 0.0), Adesk::Boolean isClockWise = Adesk::kFalse);
    /// From `start` to `end`. With `bulgeFlag` kTrue, `bulge` is the largest distance between the arc and its chord;
    /// with kFalse it is the tangent of a quarter of the angle turned, as polylines store it. A positive bulge
    /// travels counter-clockwise. The reference vector points to `start`, whose angle is 0.
    /// A zero bulge or chord is no arc: the result has radius zero and stays at `start`; callers test before.
    AcGeCircArc2d(const AcGePoint2d& start, const AcGePoint2d& end, double bulge,
                  Adesk::Boolean bulgeFlag = Adesk::kTrue);
    /// From `start` through `through` to `end`. Three points on one line are no arc: radius zero at `start`.
    AcGeCircArc2d(const AcGePoint2d& start, const AcGePoint2d& through, const AcGePoint2d& end);

    AcGePoint2d center() const { return m_center; }
    double radius() const { return m_radius; }
    double startAng() const { return m_startAngle; }
    double endAng() const { return m_endAngle; }
    AcGeVector2d refVec() const { return m_refVec; }
    Adesk::Boolean isClockWise() const { return m_clockWise; }

    AcGePoint2d startPoint() const { return evalPoint(m_startAngle); }
    AcGePoint2d endPoint() const { return evalPoint(m_endAngle); }
    AcGePoint2d evalPoint(double angle) const;
    double length() const { return m_radius * (m_endAngle - m_startAngle); }
    /// Inside the circle, its rim excluded.
    Adesk::Boolean isInside(const AcGePoint2d& p) const { return p.distanceTo(m_center) < m_radius; }

    /// The angle of the nearest point of the arc; the start of the arc when `p` is the centre.
    double paramOf(const AcGePoint2d& p) const;
    AcGePoint2d closestPointTo(const AcGePoint2d& p) const { return evalPoint(paramOf(p)); }
    double distanceTo(const AcGePoint2d& p) const { return p.distanceTo(closestPointTo(p)); }
    Adesk::Boolean isOn(const AcGePoint2d& p, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return distanceTo(p) <= tol.equalPoint();
    }

    /// The points shared with a line or segment, in the order of that line's parameter.
    /// @param count 0, 1 (a tangent within tolerance, or one end out of reach) or 2
    /// @return kTrue when there is one.
    Adesk::Boolean intersectWith(const AcGeLinearEnt2d& line, int& count, AcGePoint2d& p1, AcGePoint2d& p2,
                                 const AcGeTol& tol = AcGeContext::gTol) const;

    /// `count` points (at least 2) at equal angles from the start to the end, both included.
    void getSamplePoints(int count, AcGePoint2dArray& points) const;

private:
    /// In [startAng, startAng + 2π), beyond the end of the arc or not.
    double angleOf(const AcGePoint2d& p) const;

    AcGePoint2d m_center;
    double m_radius = 1.0;
    double m_startAngle = 0.0;
    double m_endAngle = 6.283185307179586;
    AcGeVector2d m_refVec{1.0, 0.0};
    Adesk::Boolean m_clockWise = Adesk::kFalse;
};
