#include "ge/Angles.h"

#include "gemat3d.h"
#include "geplane.h"
#include "gevec3d.h"

const AcGeVector3d AcGeVector3d::kIdentity(0.0, 0.0, 0.0);
const AcGeVector3d AcGeVector3d::kXAxis(1.0, 0.0, 0.0);
const AcGeVector3d AcGeVector3d::kYAxis(0.0, 1.0, 0.0);
const AcGeVector3d AcGeVector3d::kZAxis(0.0, 0.0, 1.0);

AcGePoint3d AcGeVector3d::asPoint() const
{
    return {x, y, z};
}

AcGeVector3d AcGeVector3d::perpVector() const
{
    constexpr double nearZ = 1.0 / 64.0; // the arbitrary axis algorithm's bound, exact in binary
    const AcGeVector3d n = normal();
    const AcGeVector3d side =
        std::fabs(n.x) < nearZ && std::fabs(n.y) < nearZ ? kYAxis.crossProduct(n) : kZAxis.crossProduct(n);
    return side.normal();
}

AcGeVector2d AcGeVector3d::convert2d(const AcGePlane& plane) const
{
    AcGePoint3d origin;
    AcGeVector3d u;
    AcGeVector3d v;
    plane.getCoordSystem(origin, u, v);
    return {dotProduct(u), dotProduct(v)};
}

double AcGeVector3d::angleTo(const AcGeVector3d& v) const
{
    // acos of the normalised product would lose half the digits near 0 and π
    return std::atan2(crossProduct(v).length(), dotProduct(v));
}

double AcGeVector3d::angleTo(const AcGeVector3d& v, const AcGeVector3d& reference) const
{
    const double unsignedAngle = angleTo(v);
    const bool clockwise = crossProduct(v).dotProduct(reference) < 0.0;
    return clockwise && unsignedAngle > 0.0 ? wholeTurn - unsignedAngle : unsignedAngle;
}

AcGeVector3d AcGeVector3d::normal(const AcGeTol& tol) const
{
    return isZeroLength(tol) ? *this : *this / length();
}

AcGeVector3d& AcGeVector3d::normalize(const AcGeTol& tol)
{
    return *this = normal(tol);
}

Adesk::Boolean AcGeVector3d::isUnitLength(const AcGeTol& tol) const
{
    return std::fabs(length() - 1.0) <= tol.equalVector();
}

Adesk::Boolean AcGeVector3d::isZeroLength(const AcGeTol& tol) const
{
    return length() <= tol.equalVector();
}

Adesk::Boolean AcGeVector3d::isParallelTo(const AcGeVector3d& v, const AcGeTol& tol) const
{
    return !isZeroLength(tol) && !v.isZeroLength(tol) &&
           normal(tol).crossProduct(v.normal(tol)).length() <= tol.equalVector();
}

Adesk::Boolean AcGeVector3d::isCodirectionalTo(const AcGeVector3d& v, const AcGeTol& tol) const
{
    return isParallelTo(v, tol) && dotProduct(v) > 0.0;
}

Adesk::Boolean AcGeVector3d::isPerpendicularTo(const AcGeVector3d& v, const AcGeTol& tol) const
{
    return !isZeroLength(tol) && !v.isZeroLength(tol) &&
           std::fabs(normal(tol).dotProduct(v.normal(tol))) <= tol.equalVector();
}

Adesk::Boolean AcGeVector3d::isEqualTo(const AcGeVector3d& v, const AcGeTol& tol) const
{
    return (*this - v).length() <= tol.equalVector();
}

AcGeVector3d& AcGeVector3d::rotateBy(double angle, const AcGeVector3d& axis)
{
    return transformBy(AcGeMatrix3d::rotation(angle, axis));
}

AcGeVector3d& AcGeVector3d::transformBy(const AcGeMatrix3d& matrix)
{
    return *this = matrix * *this;
}

AcGeVector3d AcGeVector3d::orthoProject(const AcGeVector3d& planeNormal, const AcGeTol& tol) const
{
    const AcGeVector3d n = planeNormal.normal(tol);
    return *this - n * dotProduct(n);
}

AcGeVector3d operator*(const AcGeMatrix3d& matrix, const AcGeVector3d& v)
{
    const auto& m = matrix.entry;
    return {m[0][0] * v.x + m[0][1] * v.y + m[0][2] * v.z, m[1][0] * v.x + m[1][1] * v.y + m[1][2] * v.z,
            m[2][0] * v.x + m[2][1] * v.y + m[2][2] * v.z};
}
