#include "gemat2d.h"

const AcGeMatrix2d AcGeMatrix2d::kIdentity;

namespace {

/// The transformation that applies `linear` about `center` instead of the origin.
AcGeMatrix2d about(const AcGePoint2d& center, AcGeMatrix2d linear)
{
    const AcGeVector2d shift = center - (linear * center);
    linear.entry[0][2] = shift.x;
    linear.entry[1][2] = shift.y;
    return linear;
}

} // namespace

AcGeMatrix2d AcGeMatrix2d::operator*(const AcGeMatrix2d& m) const
{
    AcGeMatrix2d product;
    for (unsigned int row = 0; row < 3; ++row)
        for (unsigned int column = 0; column < 3; ++column) {
            double sum = 0.0;
            for (unsigned int k = 0; k < 3; ++k)
                sum += entry[row][k] * m.entry[k][column];
            product.entry[row][column] = sum;
        }
    return product;
}

double AcGeMatrix2d::det() const
{
    return entry[0][0] * entry[1][1] - entry[0][1] * entry[1][0];
}

AcGeMatrix2d AcGeMatrix2d::inverse() const
{
    const double d = det();
    if (d == 0.0)
        return *this;
    AcGeMatrix2d result;
    result.entry[0][0] = entry[1][1] / d;
    result.entry[0][1] = -entry[0][1] / d;
    result.entry[1][0] = -entry[1][0] / d;
    result.entry[1][1] = entry[0][0] / d;
    const AcGeVector2d shift = -(result * translation());
    result.entry[0][2] = shift.x;
    result.entry[1][2] = shift.y;
    return result;
}

Adesk::Boolean AcGeMatrix2d::isEqualTo(const AcGeMatrix2d& m, const AcGeTol& tol) const
{
    for (unsigned int row = 0; row < 3; ++row)
        for (unsigned int column = 0; column < 3; ++column)
            if (!(std::fabs(entry[row][column] - m.entry[row][column]) <= tol.equalVector()))
                return Adesk::kFalse;
    return Adesk::kTrue;
}

AcGeMatrix2d AcGeMatrix2d::translation(const AcGeVector2d& v)
{
    AcGeMatrix2d result;
    result.entry[0][2] = v.x;
    result.entry[1][2] = v.y;
    return result;
}

AcGeMatrix2d AcGeMatrix2d::rotation(double angle, const AcGePoint2d& center)
{
    AcGeMatrix2d result;
    result.entry[0][0] = result.entry[1][1] = std::cos(angle);
    result.entry[1][0] = std::sin(angle);
    result.entry[0][1] = -result.entry[1][0];
    return about(center, result);
}

AcGeMatrix2d AcGeMatrix2d::scaling(double factor, const AcGePoint2d& center)
{
    AcGeMatrix2d result;
    result.entry[0][0] = result.entry[1][1] = factor;
    return about(center, result);
}
