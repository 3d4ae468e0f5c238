#include "ge/Angles.h"
#include "ge/cross2d.h"

#include "gemat2d.h"
#include "gevec2d.h"

const AcGeVector2d AcGeVector2d::kIdentity(0.0, 0.0);
const AcGeVector2d AcGeVector2d::kXAxis(1.0, 0.0);
const AcGeVector2d AcGeVector2d::kYAxis(0.0, 1.0);

AcGePoint2d AcGeVector2d::asPoint() const
{
    return {x, y};
}

double AcGeVector2d::angle() const
{
    return inOneTurn(std::atan2(y, x));
}

double AcGeVector2d::angleTo(const AcGeVector2d& v) const
{
    // acos of the normalised product would lose half the digits near 0 and π
    return std::atan2(std::fabs(crossOf(*this, v)), dotProduct(v));
}

AcGeVector2d AcGeVector2d::normal(const AcGeTol& tol) const
{
    return isZeroLength(tol) ? *this : *this / length();
}

AcGeVector2d& AcGeVector2d::normalize(const AcGeTol& tol)
{
    return *this = normal(tol);
}

Adesk::Boolean AcGeVector2d::isUnitLength(const AcGeTol& tol) const
{
    return std::fabs(length() - 1.0) <= tol.equalVector();
}

Adesk::Boolean AcGeVector2d::isZeroLength(const AcGeTol& tol) const
{
    return length() <= tol.equalVector();
}

Adesk::Boolean AcGeVector2d::isParallelTo(const AcGeVector2d& v, const AcGeTol& tol) const
{
    return !isZeroLength(tol) && !v.isZeroLength(tol) &&
           std::fabs(crossOf(normal(tol), v.normal(tol))) <= tol.equalVector();
}

Adesk::Boolean AcGeVector2d::isCodirectionalTo(const AcGeVector2d& v, const AcGeTol& tol) const
{
    return isParallelTo(v, tol) && dotProduct(v) > 0.0;
}

Adesk::Boolean AcGeVector2d::isPerpendicularTo(const AcGeVector2d& v, const AcGeTol& tol) const
{
    return perpVector().isParallelTo(v, tol);
}

Adesk::Boolean AcGeVector2d::isEqualTo(const AcGeVector2d& v, const AcGeTol& tol) const
{
    return (*this - v).length() <= tol.equalVector();
}

AcGeVector2d& AcGeVector2d::rotateBy(double angle)
{
    return transformBy(AcGeMatrix2d::rotation(angle));
}

AcGeVector2d& AcGeVector2d::transformBy(const AcGeMatrix2d& matrix)
{
    return *this = matrix * *this;
}

AcGeVector2d operator*(const AcGeMatrix2d& matrix, const AcGeVector2d& v)
{
    const auto& m = matrix.entry;
    return {m[0][0] * v.x + m[0][1] * v.y, m[1][0] * v.x + m[1][1] * v.y};
}
