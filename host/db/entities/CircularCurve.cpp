#include <algorithm>
#include <cmath>
#include <memory>

#include "db/entities/ArcExtents.h"
#include "db/entities/OcsTransform.h"
#include "db/entities/OnCurve.h"
#include "db/entities/PathSegment.h"
#include "ge/Angles.h"

#include "dbelipse.h"
#include "dbents.h"
#include "geplane.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbCircle, AcDbCurve, CIRCLE)
ACRX_DXF_DEFINE_MEMBERS(AcDbArc, AcDbCurve, ARC)

namespace {

constexpr double angleTolerance = 1e-9;

} // namespace

AcDbCircularCurve::AcDbCircularCurve(const AcGePoint3d& center, const AcGeVector3d& normal, double radius) :
    m_center(worldToOcs(center, normal)),
    m_normal(normal.normal()),
    m_radius(radius)
{
}

AcGePoint3d AcDbCircularCurve::center() const
{
    assertReadEnabled();
    return ocsToWorld(m_center, m_normal);
}

Acad::ErrorStatus AcDbCircularCurve::setCenter(const AcGePoint3d& center)
{
    assertWriteEnabled();
    m_center = worldToOcs(center, m_normal);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircularCurve::setRadius(double radius)
{
    assertWriteEnabled();
    if (!(radius > 0.0))
        return Acad::eInvalidInput;
    m_radius = radius;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircularCurve::setThickness(double thickness)
{
    assertWriteEnabled();
    m_thickness = thickness;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircularCurve::setNormal(const AcGeVector3d& normal)
{
    assertWriteEnabled();
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    const AcGePoint3d middle = ocsToWorld(m_center, m_normal);
    m_normal = normal.normal();
    m_center = worldToOcs(middle, m_normal);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircularCurve::getStartParam(double& param) const
{
    assertReadEnabled();
    double to = 0.0;
    angles(param, to);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircularCurve::getEndParam(double& param) const
{
    assertReadEnabled();
    double from = 0.0;
    angles(from, param);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircularCurve::getPointAtParam(double param, AcGePoint3d& point) const
{
    assertReadEnabled();
    double from = 0.0, to = 0.0;
    angles(from, to);
    if (!(param >= from - angleTolerance && param <= to + angleTolerance))
        return Acad::eInvalidInput;
    point = ocsToWorld(m_center + AcGeVector3d(std::cos(param), std::sin(param), 0.0) * m_radius, m_normal);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircularCurve::getDistAtParam(double param, double& dist) const
{
    AcGePoint3d point;
    const Acad::ErrorStatus es = getPointAtParam(param, point);
    if (es != Acad::eOk)
        return es;
    double from = 0.0, to = 0.0;
    angles(from, to);
    dist = (param - from) * m_radius;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircularCurve::getParamAtDist(double dist, double& param) const
{
    assertReadEnabled();
    double from = 0.0, to = 0.0;
    angles(from, to);
    const double angle = from + dist / m_radius;
    if (!(angle >= from - angleTolerance && angle <= to + angleTolerance))
        return Acad::eInvalidInput;
    param = angle;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircularCurve::getFirstDeriv(double param, AcGeVector3d& deriv) const
{
    AcGePoint3d point;
    const Acad::ErrorStatus es = getPointAtParam(param, point);
    if (es != Acad::eOk)
        return es;
    const AcGePoint3d turned(-std::sin(param) * m_radius, std::cos(param) * m_radius, 0.0);
    deriv = ocsToWorld(turned, m_normal) - ocsToWorld(AcGePoint3d(), m_normal);
    return Acad::eOk;
}

double AcDbCircularCurve::nearestAngle(const AcGePoint3d& point, bool extend) const
{
    double from = 0.0, to = 0.0;
    angles(from, to);
    const AcGeVector3d off = worldToOcs(point, m_normal) - m_center;
    if (off.x == 0.0 && off.y == 0.0)
        return from;
    const double past = inOneTurn(std::atan2(off.y, off.x) - from);
    if (extend || past <= to - from)
        return from + past;
    return past - (to - from) < wholeTurn - past ? to : from;
}

Acad::ErrorStatus AcDbCircularCurve::getParamAtPoint(const AcGePoint3d& point, double& param) const
{
    assertReadEnabled();
    const double angle = nearestAngle(point, false);
    AcGePoint3d onCurve;
    getPointAtParam(angle, onCurve);
    if (!liesOn(point, onCurve))
        return Acad::eInvalidInput;
    param = angle;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircularCurve::getClosestPointTo(const AcGePoint3d& point, AcGePoint3d& onCurve,
                                                       Adesk::Boolean extend) const
{
    assertReadEnabled();
    const double angle = nearestAngle(point, extend != Adesk::kFalse);
    onCurve = ocsToWorld(m_center + AcGeVector3d(std::cos(angle), std::sin(angle), 0.0) * m_radius, m_normal);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircularCurve::getArea(double& area) const
{
    assertReadEnabled();
    double from = 0.0, to = 0.0;
    angles(from, to);
    const double turned = to - from;
    area = m_radius * m_radius * (isClosed() ? turned : turned - std::sin(turned)) / 2.0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircularCurve::getGeomExtents(AcDbExtents& extents) const
{
    assertReadEnabled();
    double from = 0.0, to = 0.0;
    angles(from, to);
    AcDbExtents box;
    addArcExtents(box, {m_center, m_radius, from, to - from}, m_normal);
    for (const double angle : {from, to})
        box.addPoint(ocsToWorld(m_center + AcGeVector3d(std::cos(angle), std::sin(angle), 0.0) * m_radius, m_normal));
    if (m_thickness != 0.0) {
        const AcGeVector3d up = m_normal * m_thickness;
        const AcDbExtents flat = box;
        box.addPoint(flat.minPoint() + up);
        box.addPoint(flat.maxPoint() + up);
    }
    extents = box;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircularCurve::transformBy(const AcGeMatrix3d& matrix)
{
    assertWriteEnabled();
    const OcsTransform moved(m_normal, matrix);
    if (!moved.isValid() || !moved.keepsShapes())
        return Acad::eInvalidInput;
    double from = 0.0, to = 0.0;
    angles(from, to);
    m_center = moved.point(m_center);
    m_radius *= moved.scaleAlong(0.0);
    m_thickness *= moved.normalScale();
    m_normal = moved.normal();
    if (moved.mirrors())
        setAngles(moved.angle(to), moved.angle(from));
    else
        setAngles(moved.angle(from), moved.angle(to));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircularCurve::getTransformedCopy(const AcGeMatrix3d& matrix, AcDbEntity*& copy) const
{
    copy = nullptr;
    assertReadEnabled();
    const OcsTransform moved(m_normal, matrix);
    if (moved.isValid() && moved.keepsShapes())
        return AcDbEntity::getTransformedCopy(matrix, copy);
    if (!moved.isValid())
        return Acad::eInvalidInput;
    double from = 0.0, to = 0.0;
    angles(from, to);
    const AcGePoint3d origin = ocsToWorld(AcGePoint3d(), m_normal);
    const AcGeVector3d x = ocsToWorld(AcGePoint3d(m_radius, 0.0, 0.0), m_normal) - origin;
    const AcGeVector3d normal = isWorldNormal(m_normal) ? AcGeVector3d::kZAxis : m_normal;
    auto ellipse = std::make_unique<AcDbEllipse>(ocsToWorld(m_center, m_normal), normal, x, 1.0, from, to);
    const Acad::ErrorStatus es = ellipse->transformBy(matrix);
    if (es != Acad::eOk)
        return es;
    ellipse->setPropertiesFrom(this);
    copy = ellipse.release();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircularCurve::getOrthoProjectedCurve(const AcGePlane& plane, AcDbCurve*& projected) const
{
    projected = nullptr;
    if (!m_normal.isParallelTo(plane.normal()))
        return AcDbCurve::getOrthoProjectedCurve(plane, projected);
    AcDbEntity* copy = nullptr;
    const AcGePoint3d middle = center();
    const auto along = AcGeMatrix3d::translation(middle.orthoProject(plane) - middle);
    const Acad::ErrorStatus es = AcDbEntity::getTransformedCopy(along, copy);
    projected = AcDbCurve::cast(copy);
    return es;
}

// ---- circle, arc

void AcDbCircle::angles(double& from, double& to) const
{
    from = 0.0;
    to = wholeTurn;
}

AcDbArc::AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle) :
    AcDbArc(center, AcGeVector3d::kZAxis, radius, startAngle, endAngle)
{
}

AcDbArc::AcDbArc(const AcGePoint3d& center, const AcGeVector3d& normal, double radius, double startAngle,
                 double endAngle) :
    AcDbCircularCurve(center, normal, radius),
    m_startAngle(startAngle),
    m_endAngle(endAngle)
{
}

void AcDbArc::angles(double& from, double& to) const
{
    from = inOneTurn(m_startAngle);
    const double turned = inOneTurn(m_endAngle - m_startAngle);
    to = from + (turned < angleTolerance ? wholeTurn : turned);
}

void AcDbArc::setAngles(double from, double to)
{
    m_startAngle = from;
    m_endAngle = to;
}

double AcDbArc::totalAngle() const
{
    assertReadEnabled();
    double from = 0.0, to = 0.0;
    angles(from, to);
    return to - from;
}

Acad::ErrorStatus AcDbArc::setStartAngle(double angle)
{
    assertWriteEnabled();
    m_startAngle = angle;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::setEndAngle(double angle)
{
    assertWriteEnabled();
    m_endAngle = angle;
    return Acad::eOk;
}
