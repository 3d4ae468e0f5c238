#pragma once

#include "gevec2d.h"

/// A position in the plane, in drawing units.
class AcGePoint2d {
public:
    double x = 0.0;
    double y = 0.0;

    static const AcGePoint2d kOrigin;

    constexpr AcGePoint2d() = default;
    constexpr AcGePoint2d(double xx, double yy) : x(xx), y(yy) {}

    AcGePoint2d operator+(const AcGeVector2d& v) const { return {x + v.x, y + v.y}; }
    AcGePoint2d operator-(const AcGeVector2d& v) const { return {x - v.x, y - v.y}; }
    /// The displacement from `p` to this point.
    AcGeVector2d operator-(const AcGePoint2d& p) const { return {x - p.x, y - p.y}; }
    AcGePoint2d& operator+=(const AcGeVector2d& v) { return *this = *this + v; }
    AcGePoint2d& operator-=(const AcGeVector2d& v) { return *this = *this - v; }
    AcGePoint2d operator*(double factor) const { return {x * factor, y * factor}; }
    AcGePoint2d operator/(double divisor) const { return {x / divisor, y / divisor}; }
    AcGePoint2d& operator*=(double factor) { return *this = *this * factor; }
    AcGePoint2d& operator/=(double divisor) { return *this = *this / divisor; }
    AcGePoint2d& set(double xx, double yy) { return *this = AcGePoint2d(xx, yy); }
    double operator[](unsigned int i) const { return i == 0 ? x : y; }
    double& operator[](unsigned int i) { return i == 0 ? x : y; }

    AcGeVector2d asVector() const { return {x, y}; }
    double distanceTo(const AcGePoint2d& p) const { return (*this - p).length(); }

    /// Equal when their distance is at most `tol.equalPoint()`.
    Adesk::Boolean isEqualTo(const AcGePoint2d& p, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return distanceTo(p) <= tol.equalPoint();
    }
    bool operator==(const AcGePoint2d& p) const { return isEqualTo(p) != Adesk::kFalse; }

    AcGePoint2d& rotateBy(double angle, const AcGePoint2d& center = kOrigin);
    AcGePoint2d& scaleBy(double factor, const AcGePoint2d& center = kOrigin);
    AcGePoint2d& transformBy(const AcGeMatrix2d& matrix);
    friend AcGePoint2d operator*(const AcGeMatrix2d& matrix, const AcGePoint2d& p);
};
