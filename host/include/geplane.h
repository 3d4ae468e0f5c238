#pragma once

#include "gepnt3d.h"

/// An unbounded plane with an origin and two unit axes at right angles. Its normal is their cross product.
class AcGePlane {
public:
    static const AcGePlane kXYPlane;
    static const AcGePlane kYZPlane;
    static const AcGePlane kZXPlane;

    /// The world's XY plane.
    AcGePlane() = default;
    /// Through `origin`; its axes are the arbitrary axes of `normal`, of any length but zero.
    AcGePlane(const AcGePoint3d& origin, const AcGeVector3d& normal);
    /// `uAxis` gives the first axis, the part of `vAxis` at right angles to it the second.
    AcGePlane(const AcGePoint3d& origin, const AcGeVector3d& uAxis, const AcGeVector3d& vAxis);

    AcGePoint3d pointOnPlane() const { return m_origin; }
    AcGeVector3d normal() const { return m_uAxis.crossProduct(m_vAxis); }
    void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& uAxis, AcGeVector3d& vAxis) const;

    /// Positive on the side the normal points to.
    double signedDistanceTo(const AcGePoint3d& p) const { return (p - m_origin).dotProduct(normal()); }
    double distanceTo(const AcGePoint3d& p) const { return std::fabs(signedDistanceTo(p)); }
    AcGePoint3d closestPointTo(const AcGePoint3d& p) const { return p - normal() * signedDistanceTo(p); }
    Adesk::Boolean isOn(const AcGePoint3d& p, const AcGeTol& tol = AcGeContext::gTol) const
    {
        return distanceTo(p) <= tol.equalPoint();
    }

private:
    AcGePoint3d m_origin;
    AcGeVector3d m_uAxis{1.0, 0.0, 0.0};
    AcGeVector3d m_vAxis{0.0, 1.0, 0.0};
};
