#include <algorithm>

#include "ge/cross2d.h"

#include "gelent2d.h"

double AcGeLinearEnt2d::paramOf(const AcGePoint2d& p) const
{
    const double squared = m_axis.lengthSqrd();
    if (squared == 0.0)
        return 0.0;
    const double t = (p - m_origin).dotProduct(m_axis) / squared;
    return m_bounded ? std::clamp(t, 0.0, 1.0) : t;
}

Adesk::Boolean AcGeLinearEnt2d::isOn(const AcGePoint2d& p, double& parameter, const AcGeTol& tol) const
{
    parameter = paramOf(p);
    return isOn(p, tol);
}

Adesk::Boolean AcGeLinearEnt2d::isOn(double parameter, const AcGeTol& tol) const
{
    if (!m_bounded)
        return Adesk::kTrue;
    const double length = m_axis.length();
    return parameter * length >= -tol.equalPoint() && (parameter - 1.0) * length <= tol.equalPoint();
}

Adesk::Boolean AcGeLinearEnt2d::isParallelTo(const AcGeLinearEnt2d& other, const AcGeTol& tol) const
{
    return m_axis.isParallelTo(other.m_axis, tol);
}

Adesk::Boolean AcGeLinearEnt2d::isPerpendicularTo(const AcGeLinearEnt2d& other, const AcGeTol& tol) const
{
    return m_axis.isPerpendicularTo(other.m_axis, tol);
}

Adesk::Boolean AcGeLinearEnt2d::intersectWith(const AcGeLinearEnt2d& other, AcGePoint2d& point,
                                              const AcGeTol& tol) const
{
    if (m_axis.isZeroLength(tol) || other.m_axis.isZeroLength(tol) || isParallelTo(other, tol))
        return Adesk::kFalse;
    // origin + t·axis = other.origin + s·other.axis, by Cramer's rule.
    const double d = crossOf(m_axis, other.m_axis);
    const AcGeVector2d between = other.m_origin - m_origin;
    const double t = crossOf(between, other.m_axis) / d;
    const double s = crossOf(between, m_axis) / d;
    if (!isOn(t, tol) || !other.isOn(s, tol))
        return Adesk::kFalse;
    point = evalPoint(t);
    return Adesk::kTrue;
}
