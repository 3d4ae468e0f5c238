#pragma once

#include "gevec2d.h"

class AcGeMatrix3d;
class AcGePlane;
class AcGePoint3d;

/// A displacement in space. Angles are radians.
class AcGeVector3d {
public:
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    static const AcGeVector3d kIdentity; ///< the zero vector
    static const AcGeVector3d kXAxis;
    static const AcGeVector3d kYAxis;
    static const AcGeVector3d kZAxis;

    constexpr AcGeVector3d() = default;
    constexpr AcGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    AcGeVector3d operator*(double factor) const { return {x * factor, y * factor, z * factor}; }
    AcGeVector3d operator/(double divisor) const { return {x / divisor, y / divisor, z / divisor}; }
    AcGeVector3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    AcGeVector3d operator-(const AcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    AcGeVector3d operator-() const { return {-x, -y, -z}; }
    AcGeVector3d& operator*=(double factor) { return *this = *this * factor; }
    AcGeVector3d& operator/=(double divisor) { return *this = *this / divisor; }
    AcGeVector3d& operator+=(const AcGeVector3d& v) { return *this = *this + v; }
    AcGeVector3d& operator-=(const AcGeVector3d& v) { return *this = *this - v; }
    friend AcGeVector3d operator*(double factor, const AcGeVector3d& v) { return v * factor; }
    AcGeVector3d& negate() { return *this = -*this; }
    AcGeVector3d& set(double xx, double yy, double zz) { return *this = AcGeVector3d(xx, yy, zz); }
    /// Component 0 (x), 1 (y) or 2 (z).
    double operator[](unsigned int i) const { return i == 0 ? x : i == 1 ? y : z; }
    double& operator[](unsigned int i) { return i == 0 ? x : i == 1 ? y : z; }

    double dotProduct(const AcGeVector3d& v) const { return x * v.x + y * v.y + z * v.z; }
    AcGeVector3d crossProduct(const AcGeVector3d& v) const
    {
        return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
    }
    double lengthSqrd() const { return dotProduct(*this); }
    double length() const { return std::hypot(x, y, z); }
    AcGePoint3d asPoint() const;
    /// A unit vector at right angles to this one: the X axis that the arbitrary axis algorithm gives this normal.
    AcGeVector3d perpVector() const;
    /// Its components along the axes of `plane`.
    AcGeVector2d convert2d(const AcGePlane& plane) const;

    /// The unsigned angle between the two vectors. @return in [0, π].
    double angleTo(const AcGeVector3d& v) const;
    /// The angle from this vector to `v`, counter-clockwise seen from the side `reference` points to.
    /// @return in [0, 2π).
    double angleTo(const AcGeVector3d& v, const AcGeVector3d& reference) const;

    /// The unit vector of this direction; the zero vector (length within `tol`) stays as it is.
    AcGeVector3d normal(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeVector3d& normalize(const AcGeTol& tol = AcGeContext::gTol);

    Adesk::Boolean isUnitLength(const AcGeTol& tol = AcGeContext::gTol) const;
    Adesk::Boolean isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const;
    /// Directions are compared as unit vectors; a zero vector is parallel to none.
    Adesk::Boolean isParallelTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    Adesk::Boolean isCodirectionalTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    Adesk::Boolean isPerpendicularTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    Adesk::Boolean isEqualTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    bool operator==(const AcGeVector3d& v) const { return isEqualTo(v) != Adesk::kFalse; }

    AcGeVector3d& rotateBy(double angle, const AcGeVector3d& axis);
    AcGeVector3d& transformBy(const AcGeMatrix3d& matrix);
    /// The part of this vector at right angles to `planeNormal`.
    AcGeVector3d orthoProject(const AcGeVector3d& planeNormal, const AcGeTol& tol = AcGeContext::gTol) const;
    friend AcGeVector3d operator*(const AcGeMatrix3d& matrix, const AcGeVector3d& v);
};
