#include "points/superpositions.h"

#include "points/listePointsDuDessin.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

/// Groups of positions, each known by its smallest one.
class groupesDisjoints {
public:
    explicit groupesDisjoints(int nombre) : parents(static_cast<std::size_t>(nombre))
    {
        std::iota(parents.begin(), parents.end(), 0);
    }
    int racine(int i)
    {
        while (parent(i) != i)
            i = parent(i) = parent(parent(i));
        return i;
    }
    void reunir(int a, int b)
    {
        const int premiere = racine(a), seconde = racine(b);
        parent(std::max(premiere, seconde)) = std::min(premiere, seconde);
    }

private:
    int& parent(int i) { return parents[static_cast<std::size_t>(i)]; }
    std::vector<int> parents;
};

bool place(const pointDuDessin& p)
{
    return std::isfinite(p.getX()) && std::isfinite(p.getY()) && p.getX() != coordonneeInconnue &&
           p.getY() != coordonneeInconnue;
}

} // namespace

std::vector<std::vector<int>> superpositions(const listePointsDuDessin& table, double distance)
{
    std::vector<int> parX; // from west to east: only neighbours within the distance are compared
    for (int i = 0; i < table.nbPoint(); ++i)
        if (place(*table.getData(i)))
            parX.push_back(i);
    std::sort(parX.begin(), parX.end(), [&](int a, int b) {
        const double xa = table.getData(a)->getX(), xb = table.getData(b)->getX();
        return xa != xb ? xa < xb : a < b;
    });
    groupesDisjoints groupes(table.nbPoint());
    for (std::size_t i = 0; i < parX.size(); ++i) {
        const pointDuDessin& p = *table.getData(parX[i]);
        for (std::size_t j = i + 1; j < parX.size(); ++j) {
            const pointDuDessin& q = *table.getData(parX[j]);
            if (q.getX() - p.getX() >= distance)
                break;
            if (p.distanceTo(q) < distance)
                groupes.reunir(parX[i], parX[j]);
        }
    }
    std::vector<std::vector<int>> parRacine(static_cast<std::size_t>(table.nbPoint()));
    for (const int i : parX)
        parRacine[static_cast<std::size_t>(groupes.racine(i))].push_back(i);
    std::erase_if(parRacine, [](const auto& groupe) { return groupe.size() < 2; });
    for (auto& groupe : parRacine)
        std::sort(groupe.begin(), groupe.end());
    return parRacine;
}
