#pragma once

#include "gepnt2d.h"

/// An affine transformation of the plane; `entry[row][column]` applies to the column (x, y, 1).
class AcGeMatrix2d {
public:
    double entry[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};

    static const AcGeMatrix2d kIdentity;

    AcGeMatrix2d& setToIdentity() { return *this = AcGeMatrix2d(); }
    double operator()(unsigned int row, unsigned int column) const { return entry[row][column]; }
    double& operator()(unsigned int row, unsigned int column) { return entry[row][column]; }

    /// `a * b` applies b first.
    AcGeMatrix2d operator*(const AcGeMatrix2d& m) const;
    AcGeMatrix2d& preMultBy(const AcGeMatrix2d& left) { return *this = left * *this; }
    AcGeMatrix2d& postMultBy(const AcGeMatrix2d& right) { return *this = *this * right; }

    double det() const;
    /// The inverse; a singular matrix (determinant zero) gives itself.
    AcGeMatrix2d inverse() const;
    AcGeMatrix2d& invert() { return *this = inverse(); }
    Adesk::Boolean isEqualTo(const AcGeMatrix2d& m, const AcGeTol& tol = AcGeContext::gTol) const;
    bool operator==(const AcGeMatrix2d& m) const { return isEqualTo(m) != Adesk::kFalse; }

    AcGeVector2d translation() const { return {entry[0][2], entry[1][2]}; }
    static AcGeMatrix2d translation(const AcGeVector2d& v);
    /// Counter-clockwise, radians.
    static AcGeMatrix2d rotation(double angle, const AcGePoint2d& center = AcGePoint2d::kOrigin);
    static AcGeMatrix2d scaling(double factor, const AcGePoint2d& center = AcGePoint2d::kOrigin);
};
