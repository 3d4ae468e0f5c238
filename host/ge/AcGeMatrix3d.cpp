#include <algorithm>

#include "gemat3d.h"
#include "geplane.h"
#include "gescl3d.h"

const AcGeMatrix3d AcGeMatrix3d::kIdentity;

namespace {

/// Column 0, 1 or 2: where the matrix takes the X, Y or Z axis.
AcGeVector3d axis(const AcGeMatrix3d& m, unsigned int column)
{
    return {m.entry[0][column], m.entry[1][column], m.entry[2][column]};
}

AcGeMatrix3d fromAxes(const AcGePoint3d& origin, const AcGeVector3d& x, const AcGeVector3d& y, const AcGeVector3d& z)
{
    AcGeMatrix3d m;
    for (unsigned int row = 0; row < 3; ++row) {
        m.entry[row][0] = x[row];
        m.entry[row][1] = y[row];
        m.entry[row][2] = z[row];
        m.entry[row][3] = origin[row];
    }
    return m;
}

/// The transformation that applies `linear` about `center` instead of the origin.
AcGeMatrix3d about(const AcGePoint3d& center, AcGeMatrix3d linear)
{
    return linear.setTranslation(center - (linear * center));
}

} // namespace

AcGeMatrix3d AcGeMatrix3d::operator*(const AcGeMatrix3d& m) const
{
    AcGeMatrix3d product;
    for (unsigned int row = 0; row < 4; ++row)
        for (unsigned int column = 0; column < 4; ++column) {
            double sum = 0.0;
            for (unsigned int k = 0; k < 4; ++k)
                sum += entry[row][k] * m.entry[k][column];
            product.entry[row][column] = sum;
        }
    return product;
}

double AcGeMatrix3d::det() const
{
    return axis(*this, 0).dotProduct(axis(*this, 1).crossProduct(axis(*this, 2)));
}

Adesk::Boolean AcGeMatrix3d::isSingular(const AcGeTol& tol) const
{
    const double box = axis(*this, 0).length() * axis(*this, 1).length() * axis(*this, 2).length();
    return !(std::fabs(det()) > tol.equalVector() * box); // so written, a NaN is singular too
}

AcGeMatrix3d AcGeMatrix3d::inverse(const AcGeTol& tol) const
{
    if (isSingular(tol))
        return *this;
    const AcGeVector3d x = axis(*this, 0);
    const AcGeVector3d y = axis(*this, 1);
    const AcGeVector3d z = axis(*this, 2);
    const double d = det();
    const AcGeVector3d rows[3] = {y.crossProduct(z) / d, z.crossProduct(x) / d, x.crossProduct(y) / d};
    AcGeMatrix3d result;
    for (unsigned int row = 0; row < 3; ++row) {
        for (unsigned int column = 0; column < 3; ++column)
            result.entry[row][column] = rows[row][column];
        result.entry[row][3] = -rows[row].dotProduct(translation());
    }
    return result;
}

Adesk::Boolean AcGeMatrix3d::isEqualTo(const AcGeMatrix3d& m, const AcGeTol& tol) const
{
    for (unsigned int row = 0; row < 4; ++row)
        for (unsigned int column = 0; column < 4; ++column)
            if (!(std::fabs(entry[row][column] - m.entry[row][column]) <= tol.equalVector()))
                return Adesk::kFalse;
    return Adesk::kTrue;
}

Adesk::Boolean AcGeMatrix3d::isUniScaledOrtho(const AcGeTol& tol) const
{
    const AcGeVector3d x = axis(*this, 0);
    const AcGeVector3d y = axis(*this, 1);
    const AcGeVector3d z = axis(*this, 2);
    const double room = tol.equalVector() * scale();
    return std::fabs(x.length() - y.length()) <= room && std::fabs(y.length() - z.length()) <= room &&
           x.isPerpendicularTo(y, tol) && y.isPerpendicularTo(z, tol) && z.isPerpendicularTo(x, tol);
}

double AcGeMatrix3d::scale() const
{
    return std::max({axis(*this, 0).length(), axis(*this, 1).length(), axis(*this, 2).length()});
}

AcGeMatrix3d& AcGeMatrix3d::setTranslation(const AcGeVector3d& v)
{
    for (unsigned int row = 0; row < 3; ++row)
        entry[row][3] = v[row];
    return *this;
}

AcGeMatrix3d AcGeMatrix3d::translation(const AcGeVector3d& v)
{
    return AcGeMatrix3d().setTranslation(v);
}

AcGeMatrix3d AcGeMatrix3d::rotation(double angle, const AcGeVector3d& axis, const AcGePoint3d& center)
{
    const AcGeVector3d n = axis.normal();
    if (n.isZeroLength())
        return kIdentity;
    // Rodrigues' rotation formula.
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const auto turned = [&](const AcGeVector3d& v) {
        return v * c + n.crossProduct(v) * s + n * (n.dotProduct(v) * (1.0 - c));
    };
    return about(center, fromAxes(AcGePoint3d(), turned(AcGeVector3d(1.0, 0.0, 0.0)),
                                  turned(AcGeVector3d(0.0, 1.0, 0.0)), turned(AcGeVector3d(0.0, 0.0, 1.0))));
}

AcGeMatrix3d AcGeMatrix3d::scaling(double factor, const AcGePoint3d& center)
{
    AcGeMatrix3d result;
    AcGeScale3d(factor).getMatrix(result);
    return about(center, result);
}

AcGeMatrix3d AcGeMatrix3d::mirroring(const AcGePlane& plane)
{
    const AcGeVector3d n = plane.normal();
    AcGeMatrix3d result;
    for (unsigned int row = 0; row < 3; ++row)
        for (unsigned int column = 0; column < 3; ++column)
            result.entry[row][column] -= 2.0 * n[row] * n[column]; // Householder's reflection
    return about(plane.pointOnPlane(), result);
}

AcGeMatrix3d AcGeMatrix3d::mirroring(const AcGePoint3d& center)
{
    return scaling(-1.0, center);
}

void AcGeMatrix3d::getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis,
                                  AcGeVector3d& zAxis) const
{
    origin = translation().asPoint();
    xAxis = axis(*this, 0);
    yAxis = axis(*this, 1);
    zAxis = axis(*this, 2);
}

AcGeMatrix3d& AcGeMatrix3d::setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                           const AcGeVector3d& yAxis, const AcGeVector3d& zAxis)
{
    return *this = fromAxes(origin, xAxis, yAxis, zAxis);
}

AcGeMatrix3d AcGeMatrix3d::alignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromXAxis,
                                         const AcGeVector3d& fromYAxis, const AcGeVector3d& fromZAxis,
                                         const AcGePoint3d& toOrigin, const AcGeVector3d& toXAxis,
                                         const AcGeVector3d& toYAxis, const AcGeVector3d& toZAxis)
{
    return fromAxes(toOrigin, toXAxis, toYAxis, toZAxis) *
           fromAxes(fromOrigin, fromXAxis, fromYAxis, fromZAxis).inverse();
}

AcGeMatrix3d AcGeMatrix3d::planeToWorld(const AcGeVector3d& normal)
{
    return planeToWorld(AcGePlane(AcGePoint3d(), normal));
}

AcGeMatrix3d AcGeMatrix3d::worldToPlane(const AcGeVector3d& normal)
{
    return planeToWorld(normal).inverse();
}

AcGeMatrix3d AcGeMatrix3d::planeToWorld(const AcGePlane& plane)
{
    AcGePoint3d origin;
    AcGeVector3d u;
    AcGeVector3d v;
    plane.getCoordSystem(origin, u, v);
    return fromAxes(origin, u, v, plane.normal());
}

AcGeMatrix3d AcGeMatrix3d::worldToPlane(const AcGePlane& plane)
{
    return planeToWorld(plane).inverse();
}
