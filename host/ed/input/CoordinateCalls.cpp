// acedTrans and acedOsnap.

#include <cmath>

#include "dxf/DxfValue.h"
#include "ed/input/Question.h"
#include "ed/input/SnapWords.h"
#include "ed/select/EntityTags.h"

#include "acdocman.h"
#include "aced.h"
#include "dbads.h"
#include "gemat3d.h"

namespace {

/// Axes of an entity's own coordinate system by its normal, as drawings define them: X is square to the normal, and to
/// Y when the normal is within 1/64 of Z, to Z otherwise.
AcGeMatrix3d axesOf(AcGeVector3d normal)
{
    constexpr double nearZ = 1.0 / 64.0;
    normal = normal.normal();
    const bool isNearZ = std::fabs(normal.x) < nearZ && std::fabs(normal.y) < nearZ;
    const AcGeVector3d x = (isNearZ ? AcGeVector3d::kYAxis : AcGeVector3d::kZAxis).crossProduct(normal).normal();
    AcGeMatrix3d axes;
    axes.setCoordSystem(AcGePoint3d::kOrigin, x, normal.crossProduct(x).normal(), normal);
    return axes;
}

std::optional<AcGeVector3d> normalOf(AcDbObjectId entity)
{
    if (!entity.isValid() || entity.isErased())
        return std::nullopt;
    EntityTags tags(entity.database()->impl());
    tags.moveTo(*recordOf(entity));
    double normal[3] = {0.0, 0.0, 1.0};
    for (const DxfTag& tag : tags.tags())
        if (tag.code == 210 || tag.code == 220 || tag.code == 230)
            dxfReal(tags.form(), tag, normal[(tag.code - 210) / 10]);
    const AcGeVector3d vector(normal[0], normal[1], normal[2]);
    return vector.length() > 0.0 ? std::optional(vector) : std::nullopt;
}

/// From a coordinate system to the world's.
std::optional<AcGeMatrix3d> toWorld(const resbuf& system)
{
    constexpr short last = 3; // world, user's, display, paper: one and the same without views that turn
    switch (system.restype) {
    case RTSHORT:
        return system.resval.rint >= 0 && system.resval.rint <= last ? std::optional(AcGeMatrix3d::kIdentity)
                                                                     : std::nullopt;
    case RT3DPOINT: {
        const AcGeVector3d normal = pointOf(system.resval.rpoint).asVector();
        return normal.length() > 0.0 ? std::optional(axesOf(normal)) : std::nullopt;
    }
    case RTENAME: {
        AcDbObjectId id;
        id.setFromOldId(system.resval.rlname[0]);
        const auto normal = normalOf(id);
        return normal ? std::optional(axesOf(*normal)) : std::nullopt;
    }
    default:
        return std::nullopt;
    }
}

} // namespace

int acedTrans(const ads_point point, const resbuf* from, const resbuf* to, int, ads_point result)
{
    if (!point || !from || !to || !result || !curDoc())
        return RTERROR;
    const auto fromWorld = toWorld(*to), into = toWorld(*from);
    if (!fromWorld || !into)
        return RTERROR;
    // All systems share their origin: points and displacements turn alike.
    const AcGePoint3d turned = fromWorld->inverse() * (*into * pointOf(point));
    result[0] = turned.x;
    result[1] = turned.y;
    result[2] = turned.z;
    return RTNORM;
}

int acedOsnap(const ads_point point, const ACHAR* mode, ads_point result)
{
    const int modes = mode ? snapModesOf(mode) : 0;
    if (!point || !result || modes == 0 || !curDoc())
        return RTERROR;
    const auto found = snapPoint(pointOf(point), modes, nullptr);
    if (!found)
        return RTERROR;
    result[0] = found->x;
    result[1] = found->y;
    result[2] = found->z;
    return RTNORM;
}
