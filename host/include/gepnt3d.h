#pragma once

#include "gepnt2d.h"
#include "gevec3d.h"

/// A position in space, in drawing units.
class AcGePoint3d {
public:
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    static const AcGePoint3d kOrigin;

    constexpr AcGePoint3d() = default;
    constexpr AcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
    /// The point of `plane` whose coordinates along the plane's axes are those of `p`.
    AcGePoint3d(const AcGePlane& plane, const AcGePoint2d& p);

    AcGePoint3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    AcGePoint3d operator-(const AcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    /// The displacement from `p` to this point.
    AcGeVector3d operator-(const AcGePoint3d& p) const { return {x - p.x, y - p.y, z - p.z}; }
    AcGePoint3d& operator+=(const AcGeVector3d& v) { return *this = *this + v; }
    AcGePoint3d& operator-=(const AcGeVector3d& v) { return *this = *this - v; }
    AcGePoint3d operator*(double factor) const { return {x * factor, y * factor, z * factor}; }
    AcGePoint3d operator/(double divisor) const { return {x / divisor, y / divisor, z / divisor}; }
    AcGePoint3d& operator*=(double factor) { return *this = *this * factor; }
    AcGePoint3d& operator/=(double divisor) { return *this = *this / divisor; }
    AcGePoint3d& set(double xx, double yy, double zz) { return *this = AcGePoint3d(xx, yy, zz); }
    double operator[](unsigned int i) const { return i == 0 ? x : i == 1 ? y : z; }
    double& operator[](unsigned int i) { return i == 0 ? x : i == 1 ? y : z; }

    AcGeVector3d asVector() const { return {x, y, z}; }
    double distanceTo(const AcGePoint3d& p) const { return (*this - p).length(); }
    /// Its coordinates along the axes of `plane`; the distance to the plane is dropped.
    AcGePoint2d convert2d(const AcGePlane& plane) const;
    /// The foot of the perpendicular on `plane`.
    AcGePoint3d orthoProject(const AcGePlane& plane) const;
    /// Where the line through this point along `direction` meets `plane`; the point itself when they are parallel.
    AcGePoint3d project(const AcGePlane& plane, const AcGeVector3d& direction) const;

    /// Equal when their distance is at most `tol.equalPoint()`.
    Adesk::Boolean isEqualTo(const AcGePoint3d& p, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return distanceTo(p) <= tol.equalPoint();
    }
    bool operator==(const AcGePoint3d& p) const { return isEqualTo(p) != Adesk::kFalse; }

    AcGePoint3d& rotateBy(double angle, const AcGeVector3d& axis, const AcGePoint3d& center = kOrigin);
    AcGePoint3d& scaleBy(double factor, const AcGePoint3d& center = kOrigin);
    AcGePoint3d& transformBy(const AcGeMatrix3d& matrix);
    friend AcGePoint3d operator*(const AcGeMatrix3d& matrix, const AcGePoint3d& p);
};
