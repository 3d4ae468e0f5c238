#include "db/entities/OnCurve.h"
#include "db/entities/SampledCurve.h"
#include "ge/Angles.h"

#include "dbelipse.h"
#include "gemat3d.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbEllipse, AcDbCurve, ELLIPSE)

namespace {

constexpr double tolerance = 1e-9;
constexpr int panels = 64;

/// Eccentric angle of a direction from the centre, in the same turn.
double paramOfAngle(double angle, double ratio)
{
    const double turns = std::floor(angle / wholeTurn + 0.5) * wholeTurn;
    const double rest = angle - turns;
    return turns + std::atan2(std::sin(rest), ratio * std::cos(rest));
}

double angleOfParam(double param, double ratio)
{
    const double turns = std::floor(param / wholeTurn + 0.5) * wholeTurn;
    const double rest = param - turns;
    return turns + std::atan2(ratio * std::sin(rest), std::cos(rest));
}

} // namespace

AcDbEllipse::AcDbEllipse(const AcGePoint3d& center, const AcGeVector3d& unitNormal, const AcGeVector3d& majorAxis,
                         double radiusRatio, double startAngle, double endAngle) :
    m_center(center),
    m_majorAxis(majorAxis),
    m_normal(unitNormal),
    m_radiusRatio(radiusRatio),
    m_startParam(paramOfAngle(startAngle, radiusRatio)),
    m_endParam(paramOfAngle(endAngle, radiusRatio))
{
}

AcGeVector3d AcDbEllipse::minorAxis() const
{
    assertReadEnabled();
    return m_normal.crossProduct(m_majorAxis) * m_radiusRatio;
}

AcGePoint3d AcDbEllipse::at(double t) const
{
    return m_center + m_majorAxis * std::cos(t) + m_normal.crossProduct(m_majorAxis) * (m_radiusRatio * std::sin(t));
}

AcGeVector3d AcDbEllipse::derivative(double t) const
{
    return m_normal.crossProduct(m_majorAxis) * (m_radiusRatio * std::cos(t)) - m_majorAxis * std::sin(t);
}

void AcDbEllipse::params(double& from, double& to) const
{
    from = m_startParam;
    const double turned = m_endParam - m_startParam;
    const double rest = turned - wholeTurn * std::floor(turned / wholeTurn);
    to = from + (rest < tolerance || wholeTurn - rest < tolerance ? wholeTurn : rest);
}

Acad::ErrorStatus AcDbEllipse::setCenter(const AcGePoint3d& center)
{
    assertWriteEnabled();
    m_center = center;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::setRadiusRatio(double ratio)
{
    assertWriteEnabled();
    if (!(ratio > 0.0 && ratio <= 1.0))
        return Acad::eInvalidInput;
    m_radiusRatio = ratio;
    return Acad::eOk;
}

double AcDbEllipse::startAngle() const
{
    assertReadEnabled();
    return angleOfParam(m_startParam, m_radiusRatio);
}

double AcDbEllipse::endAngle() const
{
    assertReadEnabled();
    return angleOfParam(m_endParam, m_radiusRatio);
}

Adesk::Boolean AcDbEllipse::isClosed() const
{
    double from = 0.0, to = 0.0;
    params(from, to);
    return to - from >= wholeTurn - tolerance;
}

Acad::ErrorStatus AcDbEllipse::getStartParam(double& param) const
{
    assertReadEnabled();
    double to = 0.0;
    params(param, to);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::getEndParam(double& param) const
{
    assertReadEnabled();
    double from = 0.0;
    params(from, param);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::setStartParam(double param)
{
    assertWriteEnabled();
    m_startParam = param;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::setEndParam(double param)
{
    assertWriteEnabled();
    m_endParam = param;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::getPointAtParam(double param, AcGePoint3d& point) const
{
    assertReadEnabled();
    double from = 0.0, to = 0.0;
    params(from, to);
    if (!(param >= from - tolerance && param <= to + tolerance))
        return Acad::eInvalidInput;
    point = at(param);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::getDistAtParam(double param, double& dist) const
{
    AcGePoint3d point;
    const Acad::ErrorStatus es = getPointAtParam(param, point);
    if (es != Acad::eOk)
        return es;
    double from = 0.0, to = 0.0;
    params(from, to);
    dist = sampled_curve::length(from, param, panels, [this](double t) { return derivative(t); });
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::getParamAtDist(double dist, double& param) const
{
    double from = 0.0, to = 0.0, whole = 0.0;
    params(from, to);
    const Acad::ErrorStatus es = getDistAtParam(to, whole);
    if (es != Acad::eOk)
        return es;
    if (!(dist >= 0.0 && dist <= whole * (1.0 + tolerance)))
        return Acad::eInvalidInput;
    param = sampled_curve::paramAtLength(dist, from, to, panels, [this](double t) { return derivative(t); });
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::getFirstDeriv(double param, AcGeVector3d& deriv) const
{
    AcGePoint3d point;
    const Acad::ErrorStatus es = getPointAtParam(param, point);
    if (es == Acad::eOk)
        deriv = derivative(param);
    return es;
}

Acad::ErrorStatus AcDbEllipse::getParamAtPoint(const AcGePoint3d& point, double& param) const
{
    assertReadEnabled();
    double from = 0.0, to = 0.0;
    params(from, to);
    const double nearest = sampled_curve::nearest(point, from, to, panels, [this](double t) { return at(t); });
    if (!liesOn(point, at(nearest)))
        return Acad::eInvalidInput;
    param = nearest;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::getClosestPointTo(const AcGePoint3d& point, AcGePoint3d& onCurve,
                                                 Adesk::Boolean extend) const
{
    assertReadEnabled();
    double from = 0.0, to = 0.0;
    params(from, to);
    if (extend)
        to = from + wholeTurn;
    onCurve = at(sampled_curve::nearest(point, from, to, panels, [this](double t) { return at(t); }));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::getArea(double& area) const
{
    assertReadEnabled();
    double from = 0.0, to = 0.0;
    params(from, to);
    const double turned = isClosed() ? wholeTurn : to - from - std::sin(to - from);
    area = m_majorAxis.lengthSqrd() * m_radiusRatio * turned / 2.0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::getGeomExtents(AcDbExtents& extents) const
{
    assertReadEnabled();
    double from = 0.0, to = 0.0;
    params(from, to);
    AcDbExtents box;
    box.addPoint(at(from));
    box.addPoint(at(to));
    const AcGeVector3d minor = m_normal.crossProduct(m_majorAxis) * m_radiusRatio;
    for (unsigned int axis = 0; axis < 3; ++axis) {
        const double extreme = std::atan2(minor[axis], m_majorAxis[axis]);
        for (double t = extreme + std::ceil((from - extreme) / (wholeTurn / 2.0)) * (wholeTurn / 2.0); t <= to;
             t += wholeTurn / 2.0)
            box.addPoint(at(t));
    }
    extents = box;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::transformBy(const AcGeMatrix3d& matrix)
{
    assertWriteEnabled();
    // The axes go to two conjugate half-diameters; the new axes lie `turned` further along the ellipse.
    const AcGeVector3d u = matrix * m_majorAxis;
    const AcGeVector3d v = matrix * (m_normal.crossProduct(m_majorAxis) * m_radiusRatio);
    const double skew = u.dotProduct(v);
    const bool square = std::fabs(skew) <= tolerance * u.length() * v.length() && u.length() >= v.length();
    const double turned = square ? 0.0 : std::atan2(2.0 * skew, u.lengthSqrd() - v.lengthSqrd()) / 2.0;
    const AcGeVector3d major = u * std::cos(turned) + v * std::sin(turned);
    const AcGeVector3d minor = v * std::cos(turned) - u * std::sin(turned);
    const AcGeVector3d across = major.crossProduct(minor);
    if (!(across.length() > tolerance * major.lengthSqrd()))
        return Acad::eInvalidInput;
    m_center = matrix * m_center;
    m_majorAxis = major;
    m_normal = across.normal();
    m_radiusRatio = std::min(1.0, minor.length() / major.length());
    m_startParam -= turned;
    m_endParam -= turned;
    return Acad::eOk;
}
