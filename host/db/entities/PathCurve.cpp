#include "db/entities/OnCurve.h"
#include "db/entities/VertexPath.h"

#include "dbcurve.h"

Acad::ErrorStatus AcDbPathCurve::getStartParam(double& param) const
{
    param = 0.0;
    return path().vertexCount() > 0 ? Acad::eOk : Acad::eDegenerateGeometry;
}

Acad::ErrorStatus AcDbPathCurve::getEndParam(double& param) const
{
    const VertexPath whole = path();
    param = whole.endParam();
    return whole.vertexCount() > 0 ? Acad::eOk : Acad::eDegenerateGeometry;
}

Acad::ErrorStatus AcDbPathCurve::getPointAtParam(double param, AcGePoint3d& point) const
{
    return path().pointAt(param, point) ? Acad::eOk : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbPathCurve::getDistAtParam(double param, double& dist) const
{
    return path().lengthTo(param, dist) ? Acad::eOk : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbPathCurve::getParamAtDist(double dist, double& param) const
{
    return path().paramAtLength(dist, param) ? Acad::eOk : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbPathCurve::getFirstDeriv(double param, AcGeVector3d& deriv) const
{
    return path().derivativeAt(param, deriv) ? Acad::eOk : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbPathCurve::getParamAtPoint(const AcGePoint3d& point, double& param) const
{
    double nearest = 0.0;
    AcGePoint3d onCurve;
    if (!path().nearest(point, nearest, onCurve) || !liesOn(point, onCurve))
        return Acad::eInvalidInput;
    param = nearest;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPathCurve::getClosestPointTo(const AcGePoint3d& point, AcGePoint3d& onCurve, Adesk::Boolean) const
{
    double param = 0.0;
    return path().nearest(point, param, onCurve) ? Acad::eOk : Acad::eDegenerateGeometry;
}

Acad::ErrorStatus AcDbPathCurve::getArea(double& area) const
{
    area = path().area();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPathCurve::getGeomExtents(AcDbExtents& extents) const
{
    const VertexPath whole = path();
    AcDbExtents box;
    whole.addExtents(box);
    if (box.isEmpty())
        return Acad::eInvalidExtents;
    extents = box;
    extents.addPoint(box.minPoint() + whole.extrusion());
    extents.addPoint(box.maxPoint() + whole.extrusion());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPathCurve::explode(AcDbVoidPtrArray& entities) const
{
    path().explode(*this, entities);
    return Acad::eOk;
}
