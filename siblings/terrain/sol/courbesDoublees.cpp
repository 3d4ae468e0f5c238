#include "sol/courbesDoublees.h"

#include <algorithm>
#include <utility>

namespace {

bool lieuAvant(const lieuSol& p, const lieuSol& q)
{
    return std::pair(p.x, p.y) < std::pair(q.x, q.y);
}

void ouvrirAllerRetour(courbeNiveau& courbe)
{
    const std::size_t nombre = courbe.points.size();
    if (!courbe.fermee || nombre < 2 || nombre % 2 != 0)
        return;
    const auto en = [&](std::size_t i) { return courbe.points[i % nombre]; };
    for (std::size_t bout = 0; bout < nombre / 2; ++bout) {
        std::size_t i = 1;
        while (i < nombre / 2 && en(bout + i) == en(bout + nombre - i))
            ++i;
        if (i < nombre / 2)
            continue;
        std::rotate(courbe.points.begin(), courbe.points.begin() + static_cast<std::ptrdiff_t>(bout),
                    courbe.points.end());
        courbe.points.resize(nombre / 2 + 1);
        courbe.fermee = false;
        return;
    }
}

/// The same points whichever way a line runs, and wherever a closed one begins.
std::vector<lieuSol> forme(const courbeNiveau& courbe)
{
    std::vector<lieuSol> points = courbe.points;
    if (courbe.fermee)
        std::rotate(points.begin(), std::ranges::min_element(points, lieuAvant), points.end());
    const auto premier = points.begin() + (courbe.fermee ? 1 : 0);
    if (premier != points.end() && lieuAvant(points.back(), *premier))
        std::reverse(premier, points.end());
    return points;
}

} // namespace

bool courbesDoublees::avant(const std::vector<lieuSol>& p, const std::vector<lieuSol>& q)
{
    return std::ranges::lexicographical_compare(p, q, lieuAvant);
}

bool courbesDoublees::garder(courbeNiveau& courbe)
{
    ouvrirAllerRetour(courbe);
    return vues.insert(forme(courbe)).second;
}
