#include "points/superpositions.h"

#include <algorithm>
#include <numeric>
#include <set>
#include <utility>

#include "points/listePointsDuDessin.h"
#include "services/grandeur.h"

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
    return estConnue(p.getX()) && estConnue(p.getY());
}

} // namespace

std::vector<std::vector<int>> superpositions(const listePointsDuDessin& table, double distance)
{
    std::vector<int> parX; // from west to east
    for (int i = 0; i < table.nbPoint(); ++i)
        if (place(*table.getData(i)))
            parX.push_back(i);
    std::sort(parX.begin(), parX.end(), [&](int a, int b) {
        const double xa = table.getData(a)->getX(), xb = table.getData(b)->getX();
        return xa != xb ? xa < xb : a < b;
    });
    groupesDisjoints groupes(table.nbPoint());
    std::set<std::pair<double, int>> colonne; // Y of the points met, but those too far west of the next one
    std::size_t ouest = 0;
    for (const int i : parX) {
        const pointDuDessin& p = *table.getData(i);
        for (; p.getX() - table.getData(parX[ouest])->getX() >= distance; ++ouest)
            colonne.erase({table.getData(parX[ouest])->getY(), parX[ouest]});
        const double nord = p.getY() + distance;
        for (auto q = colonne.lower_bound({p.getY() - distance, 0}); q != colonne.end() && q->first <= nord; ++q)
            if (p.distanceTo(*table.getData(q->second)) < distance)
                groupes.reunir(i, q->second);
        colonne.emplace(p.getY(), i);
    }
    std::vector<std::vector<int>> parRacine(static_cast<std::size_t>(table.nbPoint()));
    for (const int i : parX)
        parRacine[static_cast<std::size_t>(groupes.racine(i))].push_back(i);
    std::erase_if(parRacine, [](const auto& groupe) { return groupe.size() < 2; });
    for (auto& groupe : parRacine)
        std::sort(groupe.begin(), groupe.end());
    return parRacine;
}
