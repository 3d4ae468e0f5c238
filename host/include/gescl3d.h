#pragma once

#include <cmath>

#include "adesk.h"
#include "gegbl.h"

class AcGeMatrix3d;

/// One scale factor along each axis; 1 leaves lengths as they are.
class AcGeScale3d {
public:
    double sx = 1.0;
    double sy = 1.0;
    double sz = 1.0;

    static const AcGeScale3d kIdentity;

    constexpr AcGeScale3d() = default;
    constexpr explicit AcGeScale3d(double factor) : sx(factor), sy(factor), sz(factor) {}
    constexpr AcGeScale3d(double x, double y, double z) : sx(x), sy(y), sz(z) {}

    AcGeScale3d operator*(const AcGeScale3d& s) const { return {sx * s.sx, sy * s.sy, sz * s.sz}; }
    AcGeScale3d operator*(double factor) const { return {sx * factor, sy * factor, sz * factor}; }
    AcGeScale3d inverse() const { return {1.0 / sx, 1.0 / sy, 1.0 / sz}; }
    AcGeScale3d& set(double x, double y, double z) { return *this = AcGeScale3d(x, y, z); }
    double operator[](unsigned int i) const { return i == 0 ? sx : i == 1 ? sy : sz; }
    double& operator[](unsigned int i) { return i == 0 ? sx : i == 1 ? sy : sz; }

    /// The same factor, its sign aside, along the three axes.
    Adesk::Boolean isProportional(const AcGeTol& tol = AcGeContext::gTol) const
    {
        return std::fabs(std::fabs(sx) - std::fabs(sy)) <= tol.equalVector() &&
               std::fabs(std::fabs(sy) - std::fabs(sz)) <= tol.equalVector();
    }
    Adesk::Boolean isEqualTo(const AcGeScale3d& s, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return std::fabs(sx - s.sx) <= tol.equalVector() && std::fabs(sy - s.sy) <= tol.equalVector() &&
               std::fabs(sz - s.sz) <= tol.equalVector();
    }
    bool operator==(const AcGeScale3d& s) const { return isEqualTo(s) != Adesk::kFalse; }

    /// The matrix that scales by these factors about the origin.
    void getMatrix(AcGeMatrix3d& matrix) const;
};
