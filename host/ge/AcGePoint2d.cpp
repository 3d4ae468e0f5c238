#include "gemat2d.h"

const AcGePoint2d AcGePoint2d::kOrigin(0.0, 0.0);

AcGePoint2d& AcGePoint2d::rotateBy(double angle, const AcGePoint2d& center)
{
    return transformBy(AcGeMatrix2d::rotation(angle, center));
}

AcGePoint2d& AcGePoint2d::scaleBy(double factor, const AcGePoint2d& center)
{
    return *this = center + (*this - center) * factor;
}

AcGePoint2d& AcGePoint2d::transformBy(const AcGeMatrix2d& matrix)
{
    return *this = matrix * *this;
}

AcGePoint2d operator*(const AcGeMatrix2d& matrix, const AcGePoint2d& p)
{
    return (matrix * p.asVector()).asPoint() + matrix.translation();
}
