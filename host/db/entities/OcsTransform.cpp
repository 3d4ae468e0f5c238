#include "db/entities/OcsTransform.h"

#include <cmath>

namespace {
constexpr double shapeTolerance = 1e-9; // relative: what a chain of rotations may blur
}

OcsTransform::OcsTransform(const AcGeVector3d& normal, const AcGeMatrix3d& matrix)
{
    const AcGeMatrix3d fromOld = isWorldNormal(normal) ? AcGeMatrix3d() : AcGeMatrix3d::planeToWorld(normal);
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    (matrix * fromOld).getCoordSystem(origin, x, y, z);
    const AcGeVector3d across = x.crossProduct(y);
    const double area = across.length();
    if (!(area > shapeTolerance * x.length() * y.length()))
        return;
    m_mirrors = across.dotProduct(z) < 0.0;
    m_normal = across / (m_mirrors ? -area : area);
    if (std::fabs(m_normal.x) < shapeTolerance && std::fabs(m_normal.y) < shapeTolerance)
        m_normal = AcGeVector3d(0.0, 0.0, m_normal.z < 0.0 ? -1.0 : 1.0);
    m_map = AcGeMatrix3d::worldToPlane(m_normal) * matrix * fromOld;
    m_normalScale = std::fabs(m_map.entry[2][2]);
    const double size = x.length() + y.length();
    m_keepsShapes = std::fabs(x.length() - y.length()) <= shapeTolerance * size &&
                    std::fabs(x.dotProduct(y)) <= shapeTolerance * size * size;
    m_valid = std::isfinite(area);
}

AcGeVector3d OcsTransform::direction(double angle) const
{
    return m_map * AcGeVector3d(std::cos(angle), std::sin(angle), 0.0);
}

bool OcsTransform::keepsRightAngle(double angle) const
{
    const AcGeVector3d along = direction(angle);
    const AcGeVector3d up = m_map * AcGeVector3d(-std::sin(angle), std::cos(angle), 0.0);
    return std::fabs(along.dotProduct(up)) <= shapeTolerance * along.length() * up.length();
}

double OcsTransform::scaleAlong(double angle) const
{
    return direction(angle).length();
}

double OcsTransform::angle(double old) const
{
    const AcGeVector3d turned = direction(old);
    return AcGeVector2d(turned.x, turned.y).angle();
}

OcsTransform OcsTransform::nearestSimilarity(const AcGePoint3d& place) const
{
    const AcGeVector3d x = vector(AcGeVector3d::kXAxis), y = vector(AcGeVector3d::kYAxis);
    const double sense = m_mirrors ? -1.0 : 1.0;
    const double a = (x.x + sense * y.y) / 2.0, b = (x.y - sense * y.x) / 2.0;
    const AcGeVector3d along(a, b, 0.0), across(-sense * b, sense * a, 0.0);
    AcGeMatrix3d matrix;
    matrix.setCoordSystem(point(place) - along * place.x - across * place.y, along, across, AcGeVector3d::kZAxis);
    return OcsTransform(AcGeVector3d::kZAxis, matrix);
}

AcGePoint3d ocsToWorld(const AcGePoint3d& point, const AcGeVector3d& normal)
{
    return isWorldNormal(normal) ? point : AcGeMatrix3d::planeToWorld(normal) * point;
}

AcGePoint3d worldToOcs(const AcGePoint3d& point, const AcGeVector3d& normal)
{
    return isWorldNormal(normal) ? point : AcGeMatrix3d::worldToPlane(normal) * point;
}

bool hasRightAngles(const AcGeVector3d& x, const AcGeVector3d& y, const AcGeVector3d& z)
{
    const auto across = [](const AcGeVector3d& a, const AcGeVector3d& b) {
        return std::fabs(a.dotProduct(b)) <= shapeTolerance * a.length() * b.length();
    };
    return across(x, y) && across(y, z) && across(z, x) && !x.isZeroLength() && !y.isZeroLength() && !z.isZeroLength();
}
