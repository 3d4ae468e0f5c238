#include "ed/select/AreaPicking.h"

#include "ed/input/CurrentView.h"
#include "ed/SystemVariables.h"

namespace {

std::vector<AcGePoint2d> fromAbove(const std::vector<AcGePoint3d>& points)
{
    std::vector<AcGePoint2d> plane;
    for (const AcGePoint3d& point : points)
        plane.emplace_back(point.x, point.y);
    return plane;
}

Scene& sceneOf(AcDbDatabase& database)
{
    return Scene::of(database);
}

} // namespace

double pickAperture()
{
    const auto value = SystemVariables::instance().value(L"PICKBOX");
    const short* const pixels = value ? std::get_if<short>(&*value) : nullptr;
    return (pixels ? *pixels : 3) * CurrentView::get().pixel();
}

std::vector<PickHit> hitsUnder(AcDbDatabase& database, const AcGePoint3d& point)
{
    return hitsAt(sceneOf(database), {point.x, point.y}, pickAperture());
}

std::vector<AcDbObjectId> entitiesUnder(AcDbDatabase& database, const AcGePoint3d& point, bool all)
{
    std::vector<AcDbObjectId> entities;
    for (const PickHit& hit : hitsUnder(database, point)) {
        entities.push_back(hit.entity);
        if (!all)
            break;
    }
    return entities;
}

std::vector<AcDbObjectId> entitiesInBox(AcDbDatabase& database, const AcGePoint3d& corner, const AcGePoint3d& other,
                                        PickExtent extent)
{
    Box2d box;
    box.add(corner);
    box.add(other);
    return pickBox(sceneOf(database), box, extent);
}

std::vector<AcDbObjectId> entitiesInPolygon(AcDbDatabase& database, const std::vector<AcGePoint3d>& polygon,
                                            PickExtent extent)
{
    if (polygon.size() < 3)
        return {};
    return pickPolygon(sceneOf(database), fromAbove(polygon), extent);
}

std::vector<AcDbObjectId> entitiesOnFence(AcDbDatabase& database, const std::vector<AcGePoint3d>& points)
{
    return pickFence(sceneOf(database), fromAbove(points));
}
