#include <algorithm>

#include "gelent3d.h"

double AcGeLinearEnt3d::paramOf(const AcGePoint3d& p) const
{
    const double squared = m_axis.lengthSqrd();
    if (squared == 0.0)
        return 0.0;
    const double t = (p - m_origin).dotProduct(m_axis) / squared;
    return m_bounded ? std::clamp(t, 0.0, 1.0) : t;
}

Adesk::Boolean AcGeLinearEnt3d::isOn(const AcGePoint3d& p, double& parameter, const AcGeTol& tol) const
{
    parameter = paramOf(p);
    return isOn(p, tol);
}

Adesk::Boolean AcGeLinearEnt3d::isOn(double parameter, const AcGeTol& tol) const
{
    if (!m_bounded)
        return Adesk::kTrue;
    const double length = m_axis.length();
    return parameter * length >= -tol.equalPoint() && (parameter - 1.0) * length <= tol.equalPoint();
}

Adesk::Boolean AcGeLinearEnt3d::isParallelTo(const AcGeLinearEnt3d& other, const AcGeTol& tol) const
{
    return m_axis.isParallelTo(other.m_axis, tol);
}

Adesk::Boolean AcGeLinearEnt3d::isPerpendicularTo(const AcGeLinearEnt3d& other, const AcGeTol& tol) const
{
    return m_axis.isPerpendicularTo(other.m_axis, tol);
}

Adesk::Boolean AcGeLinearEnt3d::intersectWith(const AcGeLinearEnt3d& other, AcGePoint3d& point,
                                              const AcGeTol& tol) const
{
    if (m_axis.isZeroLength(tol) || other.m_axis.isZeroLength(tol) || isParallelTo(other, tol))
        return Adesk::kFalse;
    // The feet of the common perpendicular; the two meet when its length is nothing.
    const AcGeVector3d across = m_axis.crossProduct(other.m_axis);
    const AcGeVector3d between = other.m_origin - m_origin;
    if (std::fabs(between.dotProduct(across)) > tol.equalPoint() * across.length())
        return Adesk::kFalse;
    const double t = between.crossProduct(other.m_axis).dotProduct(across) / across.lengthSqrd();
    const double s = between.crossProduct(m_axis).dotProduct(across) / across.lengthSqrd();
    if (!isOn(t, tol) || !other.isOn(s, tol))
        return Adesk::kFalse;
    point = evalPoint(t);
    return Adesk::kTrue;
}

Adesk::Boolean AcGeLinearEnt3d::intersectWith(const AcGePlane& plane, AcGePoint3d& point, const AcGeTol& tol) const
{
    const AcGeVector3d normal = plane.normal();
    if (m_axis.isZeroLength(tol) || m_axis.isPerpendicularTo(normal, tol))
        return Adesk::kFalse;
    const double t = -plane.signedDistanceTo(m_origin) / m_axis.dotProduct(normal);
    if (!isOn(t, tol))
        return Adesk::kFalse;
    point = evalPoint(t);
    return Adesk::kTrue;
}
