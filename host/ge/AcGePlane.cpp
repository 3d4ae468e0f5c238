#include "geplane.h"

const AcGePlane AcGePlane::kXYPlane;
const AcGePlane AcGePlane::kYZPlane(AcGePoint3d(), AcGeVector3d(0.0, 1.0, 0.0), AcGeVector3d(0.0, 0.0, 1.0));
const AcGePlane AcGePlane::kZXPlane(AcGePoint3d(), AcGeVector3d(0.0, 0.0, 1.0), AcGeVector3d(1.0, 0.0, 0.0));

AcGePlane::AcGePlane(const AcGePoint3d& origin, const AcGeVector3d& normal) :
    AcGePlane(origin, normal.perpVector(), normal.crossProduct(normal.perpVector()))
{
}

AcGePlane::AcGePlane(const AcGePoint3d& origin, const AcGeVector3d& uAxis, const AcGeVector3d& vAxis) :
    m_origin(origin),
    m_uAxis(uAxis.normal()),
    m_vAxis(vAxis.orthoProject(uAxis).normal())
{
}

void AcGePlane::getCoordSystem(AcGePoint3d& origin, AcGeVector3d& uAxis, AcGeVector3d& vAxis) const
{
    origin = m_origin;
    uAxis = m_uAxis;
    vAxis = m_vAxis;
}
