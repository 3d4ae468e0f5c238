#include "points/etendueDesPoints.h"

#include <algorithm>

#include "points/listePointsDuDessin.h"
#include "services/grandeur.h"

std::optional<etendueVue> etendueDesPoints(const listePointsDuDessin& table, std::optional<int> code)
{
    std::optional<etendueVue> etendue;
    for (int i = 0; i < table.nbPoint(); ++i) {
        const pointDuDessin& p = *table.getData(i);
        if ((code && p.getCode() != *code) || !estConnue(p.getX()) || !estConnue(p.getY()))
            continue;
        if (!etendue)
            etendue = etendueVue{p.getX(), p.getY(), p.getX(), p.getY()};
        etendue->xMin = std::min(etendue->xMin, p.getX());
        etendue->yMin = std::min(etendue->yMin, p.getY());
        etendue->xMax = std::max(etendue->xMax, p.getX());
        etendue->yMax = std::max(etendue->yMax, p.getY());
    }
    return etendue;
}
