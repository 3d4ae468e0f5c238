#pragma once

#include <cmath>

#include "adesk.h"
#include "gegbl.h"

class AcGeMatrix2d;
class AcGePoint2d;

/// A displacement in the plane. Angles are radians, counter-clockwise from the X axis.
class AcGeVector2d {
public:
    double x = 0.0;
    double y = 0.0;

    static const AcGeVector2d kIdentity; ///< the zero vector
    static const AcGeVector2d kXAxis;
    static const AcGeVector2d kYAxis;

    constexpr AcGeVector2d() = default;
    constexpr AcGeVector2d(double xx, double yy) : x(xx), y(yy) {}

    AcGeVector2d operator*(double factor) const { return {x * factor, y * factor}; }
    AcGeVector2d operator/(double divisor) const { return {x / divisor, y / divisor}; }
    AcGeVector2d operator+(const AcGeVector2d& v) const { return {x + v.x, y + v.y}; }
    AcGeVector2d operator-(const AcGeVector2d& v) const { return {x - v.x, y - v.y}; }
    AcGeVector2d operator-() const { return {-x, -y}; }
    AcGeVector2d& operator*=(double factor) { return *this = *this * factor; }
    AcGeVector2d& operator/=(double divisor) { return *this = *this / divisor; }
    AcGeVector2d& operator+=(const AcGeVector2d& v) { return *this = *this + v; }
    AcGeVector2d& operator-=(const AcGeVector2d& v) { return *this = *this - v; }
    friend AcGeVector2d operator*(double factor, const AcGeVector2d& v) { return v * factor; }
    AcGeVector2d& negate() { return *this = -*this; }
    AcGeVector2d& set(double xx, double yy) { return *this = AcGeVector2d(xx, yy); }
    /// Component 0 (x) or 1 (y).
    double operator[](unsigned int i) const { return i == 0 ? x : y; }
    double& operator[](unsigned int i) { return i == 0 ? x : y; }

    double dotProduct(const AcGeVector2d& v) const { return x * v.x + y * v.y; }
    double lengthSqrd() const { return dotProduct(*this); }
    double length() const { return std::hypot(x, y); }
    /// This vector turned a quarter counter-clockwise.
    AcGeVector2d perpVector() const { return {-y, x}; }
    AcGePoint2d asPoint() const;

    /// @return in [0, 2π); 0 for the zero vector.
    double angle() const;
    /// The unsigned angle between the two vectors. @return in [0, π].
    double angleTo(const AcGeVector2d& v) const;

    /// The unit vector of this direction; the zero vector (length within `tol`) stays as it is.
    AcGeVector2d normal(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeVector2d& normalize(const AcGeTol& tol = AcGeContext::gTol);

    Adesk::Boolean isUnitLength(const AcGeTol& tol = AcGeContext::gTol) const;
    Adesk::Boolean isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const;
    /// Directions are compared as unit vectors; a zero vector is parallel to none.
    Adesk::Boolean isParallelTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    Adesk::Boolean isCodirectionalTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    Adesk::Boolean isPerpendicularTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    Adesk::Boolean isEqualTo(const AcGeVector2d& v, const AcGeTol& tol = AcGeContext::gTol) const;
    bool operator==(const AcGeVector2d& v) const { return isEqualTo(v) != Adesk::kFalse; }

    AcGeVector2d& rotateBy(double angle);
    AcGeVector2d& transformBy(const AcGeMatrix2d& matrix);
    friend AcGeVector2d operator*(const AcGeMatrix2d& matrix, const AcGeVector2d& v);
};
