#include "sol/lieuxDistincts.h"

#include <algorithm>
#include <bit>
#include <cmath>

lieuxDistincts::lieuxDistincts(double leRayon, std::size_t prevus) :
    rayon(leRayon),
    casiers(std::bit_ceil(2 * prevus + 16), -1)
{
    lesSommets.reserve(prevus);
}

/// Cells of twice the radius: what is near a point lies in its cell or in three next to it.
lieuxDistincts::cellule lieuxDistincts::celluleDe(const lieuSol& lieu) const
{
    return {static_cast<std::int64_t>(std::floor(lieu.x / (2 * rayon))),
            static_cast<std::int64_t>(std::floor(lieu.y / (2 * rayon)))};
}

std::size_t lieuxDistincts::casier(const cellule& c) const
{
    auto h = static_cast<std::uint64_t>(c.colonne) * 0x9E3779B97F4A7C15ULL;
    h = (h ^ h >> 29U) + static_cast<std::uint64_t>(c.rangee) * 0xBF58476D1CE4E5B9ULL;
    h = (h ^ h >> 32U) * 0x94D049BB133111EBULL;
    return static_cast<std::size_t>(h ^ h >> 31U) & (casiers.size() - 1);
}

int lieuxDistincts::chercher(const cellule& c, const lieuSol& lieu) const
{
    for (std::size_t i = casier(c); casiers[i] >= 0; i = (i + 1) & (casiers.size() - 1)) {
        const sommetSol& s = lesSommets[static_cast<std::size_t>(casiers[i])];
        if (celluleDe(s) == c && std::hypot(s.x - lieu.x, s.y - lieu.y) < rayon)
            return casiers[i];
    }
    return -1;
}

void lieuxDistincts::ranger(int numero)
{
    std::size_t i = casier(celluleDe(lesSommets[static_cast<std::size_t>(numero)]));
    while (casiers[i] >= 0)
        i = (i + 1) & (casiers.size() - 1);
    casiers[i] = numero;
}

void lieuxDistincts::agrandir()
{
    casiers.assign(2 * casiers.size(), -1);
    for (std::size_t i = 0; i < lesSommets.size(); ++i)
        ranger(static_cast<int>(i));
}

int lieuxDistincts::ajouter(const sommetSol& point)
{
    const cellule ici = celluleDe(point);
    const auto vers = [this](double valeur, std::int64_t rang) {
        return valeur / (2 * rayon) - static_cast<double>(rang) < 0.5 ? -1 : 1;
    };
    const std::int64_t dx = vers(point.x, ici.colonne), dy = vers(point.y, ici.rangee);
    for (const cellule& c : {ici, cellule{ici.colonne + dx, ici.rangee}, cellule{ici.colonne, ici.rangee + dy},
                             cellule{ici.colonne + dx, ici.rangee + dy}})
        if (const int trouve = chercher(c, point); trouve >= 0)
            return trouve;
    lesSommets.push_back(point);
    if (lesSommets.size() * 2 > casiers.size())
        agrandir();
    else
        ranger(static_cast<int>(lesSommets.size()) - 1);
    return static_cast<int>(lesSommets.size()) - 1;
}
