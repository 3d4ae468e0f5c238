#pragma once

#include "gemat3d.h"

/// Takes an entity that lies in a plane, with coordinates along the arbitrary axes of its normal, through a
/// transformation of the world.
///
/// The new normal is on the side to which the transformation takes the old one; a mirroring within the plane therefore
/// keeps the normal and turns the sense of angles round.
class OcsTransform {
public:
    OcsTransform(const AcGeVector3d& normal, const AcGeMatrix3d& matrix);

    /// False when the transformation flattens the plane: nothing else can then be asked.
    bool isValid() const { return m_valid; }
    const AcGeVector3d& normal() const { return m_normal; }
    /// Old plane coordinates to new ones.
    AcGePoint3d point(const AcGePoint3d& old) const { return m_map * old; }
    AcGeVector3d vector(const AcGeVector3d& old) const { return m_map * old; }

    /// Whether shapes of the plane keep their form; only then do scale and angle say all.
    bool keepsShapes() const { return m_keepsShapes; }
    /// Whether directions at right angles along the plane's axes stay so after turning by `angle`.
    bool keepsRightAngle(double angle) const;
    /// How lengths along a direction of the plane (radians from its X axis) change.
    double scaleAlong(double angle) const;
    bool mirrors() const { return m_mirrors; }
    /// Of lengths along the normal.
    double normalScale() const { return m_normalScale; }
    /// New angle of a direction.
    double angle(double old) const;
    /// From the old plane to the new one without changing shapes: the closest to this one that agrees with it at a
    /// place; it mirrors where this one does.
    OcsTransform nearestSimilarity(const AcGePoint3d& place) const;

private:
    AcGeVector3d direction(double angle) const;
    AcGeMatrix3d m_map; // old plane coordinates to new ones
    AcGeVector3d m_normal;
    double m_normalScale = 1.0;
    bool m_valid = false, m_keepsShapes = false, m_mirrors = false;
};

/// Plane coordinates to the world's and back; at no cost for the world's own plane.
AcGePoint3d ocsToWorld(const AcGePoint3d& point, const AcGeVector3d& normal);
AcGePoint3d worldToOcs(const AcGePoint3d& point, const AcGeVector3d& normal);
/// The world's own plane; a normal without length counts as such.
inline bool isWorldNormal(const AcGeVector3d& normal)
{
    return normal.x == 0.0 && normal.y == 0.0 && normal.z >= 0.0;
}
/// Whether the axes are at right angles to each other, and none without length: what shows a block, and no slant.
bool hasRightAngles(const AcGeVector3d& x, const AcGeVector3d& y, const AcGeVector3d& z);
