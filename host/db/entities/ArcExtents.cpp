#include "db/entities/ArcExtents.h"

#include <cmath>

#include "db/entities/OcsTransform.h"
#include "ge/Angles.h"

namespace {

/// Whether the arc passes a direction from its centre.
bool passes(const PlaneArc& arc, double angle)
{
    double along = arc.turn > 0.0 ? angle - arc.startAngle : arc.startAngle - angle;
    along -= wholeTurn * std::floor(along / wholeTurn);
    return along <= std::fabs(arc.turn);
}

} // namespace

void addArcExtents(AcDbExtents& extents, const PlaneArc& arc, const AcGeVector3d& normal)
{
    const AcGePoint3d origin = ocsToWorld(AcGePoint3d(), normal);
    const AcGeVector3d x = ocsToWorld(AcGePoint3d(1.0, 0.0, 0.0), normal) - origin;
    const AcGeVector3d y = ocsToWorld(AcGePoint3d(0.0, 1.0, 0.0), normal) - origin;
    for (unsigned int axis = 0; axis < 3; ++axis) {
        if (x[axis] == 0.0 && y[axis] == 0.0)
            continue;
        // A coordinate of center + radius (x cos a + y sin a) is extreme where tan a = y / x.
        const double extreme = std::atan2(y[axis], x[axis]);
        for (const double angle : {extreme, extreme + halfTurn})
            if (passes(arc, angle))
                extents.addPoint(ocsToWorld(
                    arc.center + AcGeVector3d(arc.radius * std::cos(angle), arc.radius * std::sin(angle), 0.0),
                    normal));
    }
}
