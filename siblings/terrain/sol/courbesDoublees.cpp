#include "sol/courbesDoublees.h"

#include <algorithm>

courbesDoublees::cle courbesDoublees::cleDe(const lieuSol& p, const lieuSol& q)
{
    const std::pair a(p.x, p.y), b(q.x, q.y);
    return {std::min(a, b), std::max(a, b)};
}

/// Where the line turns back, else behind a side that another line has; so no stretch is cut in its midst.
std::size_t courbesDoublees::departDe(std::span<const lieuSol> lieux, const std::vector<bool>& sommets) const
{
    const std::size_t nombre = lieux.size();
    std::size_t depart = 0;
    for (std::size_t i = 0; i < nombre; ++i) {
        const std::size_t avant = (i + nombre - 1) % nombre;
        if (!sommets[i] || !sommets[avant] || lieux[i] == lieux[avant])
            continue;
        std::size_t pas = 1; // over corners at one place
        while (pas < nombre && lieux[(i + pas) % nombre] == lieux[i])
            ++pas;
        if (lieux[(i + pas) % nombre] == lieux[avant])
            return i;
        if (vus.contains(cleDe(lieux[avant], lieux[i])))
            depart = i;
    }
    return depart;
}

std::vector<courbesDoublees::troncon> courbesDoublees::garder(std::span<const lieuSol> lieux,
                                                              const std::vector<bool>& sommets, bool fermee)
{
    const std::size_t nombre = lieux.size(), cotes = fermee ? nombre : nombre - 1;
    if (std::ranges::none_of(sommets, [](bool s) { return s; }))
        return {{0, cotes}};
    const std::size_t depart = fermee ? departDe(lieux, sommets) : 0;
    std::vector<troncon> gardes;
    bool ouvert = false;
    for (std::size_t k = depart; k < depart + cotes; ++k) {
        const std::size_t i = k % nombre, j = (k + 1) % nombre;
        const bool neuf =
            !sommets[i] || !sommets[j] || lieux[i] == lieux[j] || vus.insert(cleDe(lieux[i], lieux[j])).second;
        if (neuf && !ouvert)
            gardes.push_back({k, k});
        if (neuf)
            gardes.back().fin = k + 1;
        ouvert = neuf;
    }
    return gardes;
}
