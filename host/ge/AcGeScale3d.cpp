#include "gemat3d.h"
#include "gescl3d.h"

const AcGeScale3d AcGeScale3d::kIdentity;

void AcGeScale3d::getMatrix(AcGeMatrix3d& matrix) const
{
    matrix = AcGeMatrix3d::kIdentity;
    matrix.entry[0][0] = sx;
    matrix.entry[1][1] = sy;
    matrix.entry[2][2] = sz;
}
