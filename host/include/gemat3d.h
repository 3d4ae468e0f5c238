#pragma once

#include "gepnt3d.h"

class AcGePlane;

/// An affine transformation of space; `entry[row][column]` applies to the column (x, y, z, 1), so that the last row
/// is always (0, 0, 0, 1).
/// Angles are radians, counter-clockwise seen from the tip of the axis.
class AcGeMatrix3d {
public:
    double entry[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};

    static const AcGeMatrix3d kIdentity;

    AcGeMatrix3d& setToIdentity() { return *this = AcGeMatrix3d(); }
    double operator()(unsigned int row, unsigned int column) const { return entry[row][column]; }
    double& operator()(unsigned int row, unsigned int column) { return entry[row][column]; }

    /// `a * b` applies b first.
    AcGeMatrix3d operator*(const AcGeMatrix3d& m) const;
    AcGeMatrix3d& operator*=(const AcGeMatrix3d& m) { return *this = *this * m; }
    AcGeMatrix3d& preMultBy(const AcGeMatrix3d& left) { return *this = left * *this; }
    AcGeMatrix3d& postMultBy(const AcGeMatrix3d& right) { return *this = *this * right; }
    AcGeMatrix3d& setToProduct(const AcGeMatrix3d& a, const AcGeMatrix3d& b) { return *this = a * b; }

    /// The volume that its three axes span, negative when it mirrors.
    double det() const;
    /// Singular when its three axes span a volume below `tol.equalVector()` times the product of their lengths.
    Adesk::Boolean isSingular(const AcGeTol& tol = AcGeContext::gTol) const;
    /// The inverse; a singular matrix gives itself.
    AcGeMatrix3d inverse(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeMatrix3d& invert() { return *this = inverse(); }
    /// Entries are compared one by one, with `tol.equalVector()`.
    Adesk::Boolean isEqualTo(const AcGeMatrix3d& m, const AcGeTol& tol = AcGeContext::gTol) const;
    bool operator==(const AcGeMatrix3d& m) const { return isEqualTo(m) != Adesk::kFalse; }
    /// Axes at right angles, all of one length: shapes keep their form, circles stay circles.
    Adesk::Boolean isUniScaledOrtho(const AcGeTol& tol = AcGeContext::gTol) const;
    /// The length of the longest axis.
    double scale() const;

    AcGeVector3d translation() const { return {entry[0][3], entry[1][3], entry[2][3]}; }
    AcGeMatrix3d& setTranslation(const AcGeVector3d& v);

    static AcGeMatrix3d translation(const AcGeVector3d& v);
    /// A zero axis gives the identity.
    static AcGeMatrix3d rotation(double angle, const AcGeVector3d& axis,
                                 const AcGePoint3d& center = AcGePoint3d::kOrigin);
    static AcGeMatrix3d scaling(double factor, const AcGePoint3d& center = AcGePoint3d::kOrigin);
    static AcGeMatrix3d mirroring(const AcGePlane& plane);
    static AcGeMatrix3d mirroring(const AcGePoint3d& center);
    AcGeMatrix3d& setToTranslation(const AcGeVector3d& v) { return *this = translation(v); }
    AcGeMatrix3d& setToRotation(double angle, const AcGeVector3d& axis,
                                const AcGePoint3d& center = AcGePoint3d::kOrigin)
    {
        return *this = rotation(angle, axis, center);
    }
    AcGeMatrix3d& setToScaling(double factor, const AcGePoint3d& center = AcGePoint3d::kOrigin)
    {
        return *this = scaling(factor, center);
    }
    AcGeMatrix3d& setToMirroring(const AcGePlane& plane) { return *this = mirroring(plane); }

    /// The columns of the matrix: where it takes the origin and the three axes.
    void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis, AcGeVector3d& zAxis) const;
    AcGeMatrix3d& setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis, const AcGeVector3d& yAxis,
                                 const AcGeVector3d& zAxis);
    /// The transformation that takes the first coordinate system onto the second.
    static AcGeMatrix3d alignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromXAxis,
                                      const AcGeVector3d& fromYAxis, const AcGeVector3d& fromZAxis,
                                      const AcGePoint3d& toOrigin, const AcGeVector3d& toXAxis,
                                      const AcGeVector3d& toYAxis, const AcGeVector3d& toZAxis);

    /// From the coordinates of a plane entity (its normal's arbitrary axes, origin kept) to the world's.
    /// The arbitrary axis algorithm: X is Y×N when N lies within 1/64 of the world's Z (|x| and |y| < 1/64), else Z×N.
    static AcGeMatrix3d planeToWorld(const AcGeVector3d& normal);
    static AcGeMatrix3d worldToPlane(const AcGeVector3d& normal);
    /// The same with the plane's own origin and axes.
    static AcGeMatrix3d planeToWorld(const AcGePlane& plane);
    static AcGeMatrix3d worldToPlane(const AcGePlane& plane);
    AcGeMatrix3d& setToPlaneToWorld(const AcGeVector3d& normal) { return *this = planeToWorld(normal); }
    AcGeMatrix3d& setToWorldToPlane(const AcGeVector3d& normal) { return *this = worldToPlane(normal); }
};
