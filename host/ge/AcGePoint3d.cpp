#include "gemat3d.h"
#include "geplane.h"

const AcGePoint3d AcGePoint3d::kOrigin(0.0, 0.0, 0.0);

AcGePoint3d::AcGePoint3d(const AcGePlane& plane, const AcGePoint2d& p)
{
    AcGePoint3d origin;
    AcGeVector3d u;
    AcGeVector3d v;
    plane.getCoordSystem(origin, u, v);
    *this = origin + u * p.x + v * p.y;
}

AcGePoint2d AcGePoint3d::convert2d(const AcGePlane& plane) const
{
    return (*this - plane.pointOnPlane()).convert2d(plane).asPoint();
}

AcGePoint3d AcGePoint3d::orthoProject(const AcGePlane& plane) const
{
    return plane.closestPointTo(*this);
}

AcGePoint3d AcGePoint3d::project(const AcGePlane& plane, const AcGeVector3d& direction) const
{
    if (direction.isZeroLength() || direction.isPerpendicularTo(plane.normal()))
        return *this;
    return *this - direction * (plane.signedDistanceTo(*this) / direction.dotProduct(plane.normal()));
}

AcGePoint3d& AcGePoint3d::rotateBy(double angle, const AcGeVector3d& axis, const AcGePoint3d& center)
{
    return transformBy(AcGeMatrix3d::rotation(angle, axis, center));
}

AcGePoint3d& AcGePoint3d::scaleBy(double factor, const AcGePoint3d& center)
{
    return *this = center + (*this - center) * factor;
}

AcGePoint3d& AcGePoint3d::transformBy(const AcGeMatrix3d& matrix)
{
    return *this = matrix * *this;
}

AcGePoint3d operator*(const AcGeMatrix3d& matrix, const AcGePoint3d& p)
{
    return (matrix * p.asVector()).asPoint() + matrix.translation();
}
