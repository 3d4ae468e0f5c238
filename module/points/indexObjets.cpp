#include "points/indexObjets.h"

#include <algorithm>

int indexObjets::chercher(const AcDbObjectId& id, std::span<const pointDuDessin> points)
{
    const int position = trouver(id, points);
    if (position >= 0 || (suspects.empty() && indexes == points.size()))
        return position;
    mettreAJour(points);
    return trouver(id, points);
}

void indexObjets::suspecter(int position)
{
    if (suspects.size() > indexes)
        return suspecterTout(); // starting again costs less than going on remembering
    suspects.push_back(position);
}

void indexObjets::raccourcir(std::size_t nombre)
{
    indexes = std::min(indexes, nombre); // those that come in their place are new
}

void indexObjets::suspecterTout()
{
    positions.clear();
    suspects.clear();
    indexes = 0;
}

int indexObjets::trouver(const AcDbObjectId& id, std::span<const pointDuDessin> points) const
{
    const auto it = positions.find(id.asOldId());
    if (it == positions.end())
        return -1;
    const auto position = static_cast<std::size_t>(it->second);
    return position < points.size() && points[position].getId() == id ? it->second : -1;
}

void indexObjets::mettreAJour(std::span<const pointDuDessin> points)
{
    const auto indexer = [&](int position) {
        const AcDbObjectId& id = points[static_cast<std::size_t>(position)].getId();
        const int connue = trouver(id, points);
        if (connue < 0 || position < connue)
            positions[id.asOldId()] = position;
    };
    indexes = std::min(indexes, points.size());
    for (const int position : suspects)
        if (static_cast<std::size_t>(position) < indexes)
            indexer(position);
    suspects.clear();
    for (; indexes < points.size(); ++indexes)
        indexer(static_cast<int>(indexes));
}
