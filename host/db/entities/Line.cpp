#include <algorithm>

#include "db/entities/OnCurve.h"

#include "dbents.h"
#include "gelnsg3d.h"
#include "geplane.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbLine, AcDbCurve, LINE)

namespace {

constexpr double lengthTolerance = 1e-9; // relative

bool isWithin(double value, double length)
{
    const double tolerance = lengthTolerance * std::max(1.0, length);
    return value >= -tolerance && value <= length + tolerance;
}

} // namespace

Acad::ErrorStatus AcDbLine::setStartPoint(const AcGePoint3d& point)
{
    assertWriteEnabled();
    m_start = point;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::setEndPoint(const AcGePoint3d& point)
{
    assertWriteEnabled();
    m_end = point;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::setThickness(double thickness)
{
    assertWriteEnabled();
    m_thickness = thickness;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::setNormal(const AcGeVector3d& normal)
{
    assertWriteEnabled();
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    m_normal = normal.normal();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getStartParam(double& param) const
{
    param = 0.0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getEndParam(double& param) const
{
    assertReadEnabled();
    param = m_start.distanceTo(m_end);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getPointAtParam(double param, AcGePoint3d& point) const
{
    assertReadEnabled();
    const double length = m_start.distanceTo(m_end);
    if (!isWithin(param, length))
        return Acad::eInvalidInput;
    point = length > 0.0 ? m_start + (m_end - m_start) * (param / length) : m_start;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getDistAtParam(double param, double& dist) const
{
    AcGePoint3d point;
    const Acad::ErrorStatus es = getPointAtParam(param, point);
    if (es == Acad::eOk)
        dist = param;
    return es;
}

Acad::ErrorStatus AcDbLine::getParamAtDist(double dist, double& param) const
{
    return getDistAtParam(dist, param);
}

Acad::ErrorStatus AcDbLine::getFirstDeriv(double param, AcGeVector3d& deriv) const
{
    AcGePoint3d point;
    const Acad::ErrorStatus es = getPointAtParam(param, point);
    if (es == Acad::eOk)
        deriv = (m_end - m_start).normal();
    return es;
}

Acad::ErrorStatus AcDbLine::getParamAtPoint(const AcGePoint3d& point, double& param) const
{
    AcGePoint3d onLine;
    getClosestPointTo(point, onLine);
    if (!liesOn(point, onLine))
        return Acad::eInvalidInput;
    param = m_start.distanceTo(onLine);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getClosestPointTo(const AcGePoint3d& point, AcGePoint3d& onCurve,
                                              Adesk::Boolean extend) const
{
    assertReadEnabled();
    const AcGeVector3d chord = m_end - m_start;
    const double squared = chord.lengthSqrd();
    double t = squared > 0.0 ? (point - m_start).dotProduct(chord) / squared : 0.0;
    if (!extend)
        t = std::clamp(t, 0.0, 1.0);
    onCurve = t == 1.0 ? m_end : m_start + chord * t;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getArea(double& area) const
{
    area = 0.0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::reverseCurve()
{
    assertWriteEnabled();
    std::swap(m_start, m_end);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getOrthoProjectedCurve(const AcGePlane& plane, AcDbCurve*& projected) const
{
    assertReadEnabled();
    auto* copy = new AcDbLine(m_start.orthoProject(plane), m_end.orthoProject(plane));
    copy->setPropertiesFrom(this);
    projected = copy;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getGeomExtents(AcDbExtents& extents) const
{
    assertReadEnabled();
    AcDbExtents box;
    for (const AcGePoint3d& end : {m_start, m_end}) {
        box.addPoint(end);
        box.addPoint(end + m_normal * m_thickness);
    }
    extents = box;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::transformBy(const AcGeMatrix3d& matrix)
{
    assertWriteEnabled();
    m_start = matrix * m_start;
    m_end = matrix * m_end;
    const AcGeVector3d normal = matrix * m_normal;
    if (!normal.isZeroLength()) {
        m_thickness *= normal.length();
        m_normal = normal.normal();
    }
    return Acad::eOk;
}
