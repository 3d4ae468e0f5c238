#include "db/entities/CurveIntersection.h"

#include "dbcurve.h"
#include "gemat3d.h"
#include "geplane.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbCurve, AcDbEntity)

Acad::ErrorStatus AcDbCurve::getStartPoint(AcGePoint3d& point) const
{
    double param = 0.0;
    const Acad::ErrorStatus es = getStartParam(param);
    return es == Acad::eOk ? getPointAtParam(param, point) : es;
}

Acad::ErrorStatus AcDbCurve::getEndPoint(AcGePoint3d& point) const
{
    double param = 0.0;
    const Acad::ErrorStatus es = getEndParam(param);
    return es == Acad::eOk ? getPointAtParam(param, point) : es;
}

Acad::ErrorStatus AcDbCurve::getParamAtPoint(const AcGePoint3d&, double&) const
{
    return Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbCurve::getDistAtPoint(const AcGePoint3d& point, double& dist) const
{
    double param = 0.0;
    const Acad::ErrorStatus es = getParamAtPoint(point, param);
    return es == Acad::eOk ? getDistAtParam(param, dist) : es;
}

Acad::ErrorStatus AcDbCurve::getPointAtDist(double dist, AcGePoint3d& point) const
{
    double param = 0.0;
    const Acad::ErrorStatus es = getParamAtDist(dist, param);
    return es == Acad::eOk ? getPointAtParam(param, point) : es;
}

Acad::ErrorStatus AcDbCurve::getFirstDeriv(const AcGePoint3d& point, AcGeVector3d& deriv) const
{
    double param = 0.0;
    const Acad::ErrorStatus es = getParamAtPoint(point, param);
    return es == Acad::eOk ? getFirstDeriv(param, deriv) : es;
}

Acad::ErrorStatus AcDbCurve::getArea(double&) const
{
    return Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbCurve::getOrthoProjectedCurve(const AcGePlane& plane, AcDbCurve*& projected) const
{
    projected = nullptr;
    AcGeMatrix3d flatten; // (x, y, z) to (x, y, 0) along the axes of the plane
    flatten(2, 2) = 0.0;
    flatten = AcGeMatrix3d::planeToWorld(plane) * flatten * AcGeMatrix3d::worldToPlane(plane);
    AcDbEntity* copy = nullptr;
    const Acad::ErrorStatus es = getTransformedCopy(flatten, copy);
    projected = AcDbCurve::cast(copy);
    return es;
}

Acad::ErrorStatus AcDbCurve::intersectWith(const AcDbEntity* other, AcDb::Intersect type, AcGePoint3dArray& points,
                                           Adesk::GsMarker, Adesk::GsMarker) const
{
    return intersectCurves(*this, other, type, nullptr, points);
}

Acad::ErrorStatus AcDbCurve::intersectWith(const AcDbEntity* other, AcDb::Intersect type, const AcGePlane& plane,
                                           AcGePoint3dArray& points, Adesk::GsMarker, Adesk::GsMarker) const
{
    return intersectCurves(*this, other, type, &plane, points);
}
