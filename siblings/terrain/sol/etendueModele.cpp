#include "sol/etendueModele.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

struct centre {
    lieuSol lieu;
    std::size_t triangle;
};

std::vector<centre> centres(const maillageTerrain& sol)
{
    std::vector<centre> tous;
    tous.reserve(sol.triangles().size());
    for (int t = 0; t < static_cast<int>(sol.triangles().size()); ++t) {
        const sommetSol &a = sol.coin(t, 0), &b = sol.coin(t, 1), &c = sol.coin(t, 2);
        tous.push_back({{(a.x + b.x + c.x) / 3, (a.y + b.y + c.y) / 3}, static_cast<std::size_t>(t)});
    }
    std::sort(tous.begin(), tous.end(), [](const centre& p, const centre& q) { return p.lieu.y < q.lieu.y; });
    return tous;
}

/// A side of an outline, going up.
struct montee {
    lieuSol bas, haut;
    double xEn(double y) const { return bas.x + (haut.x - bas.x) * ((y - bas.y) / (haut.y - bas.y)); }
};

std::vector<montee> montees(const semisTerrain::ligne& ligne)
{
    std::vector<montee> cotes;
    for (std::size_t i = 0; i < ligne.sommets.size(); ++i) {
        const lieuSol &a = ligne.sommets[i], &b = ligne.sommets[(i + 1) % ligne.sommets.size()];
        if (a.y < b.y)
            cotes.push_back({a, b});
        else if (b.y < a.y)
            cotes.push_back({b, a});
    }
    std::sort(cotes.begin(), cotes.end(), [](const montee& p, const montee& q) { return p.bas.y < q.bas.y; });
    return cotes;
}

/// Sets `valeur` for the triangles in an outline: a line sweeps upwards, and holds the sides at its height.
void marquer(const std::vector<centre>& tous, const semisTerrain::ligne& contour, char valeur,
             std::vector<char>& marques)
{
    const std::vector<montee> cotes = montees(contour);
    std::vector<montee> actifs;
    auto prochain = cotes.begin();
    for (const centre& c : tous) {
        for (; prochain != cotes.end() && prochain->bas.y <= c.lieu.y; ++prochain)
            actifs.push_back(*prochain);
        std::erase_if(actifs, [&c](const montee& m) { return m.haut.y <= c.lieu.y; });
        const auto aDroite =
            std::count_if(actifs.begin(), actifs.end(), [&c](const montee& m) { return m.xEn(c.lieu.y) > c.lieu.x; });
        if (aDroite % 2 != 0)
            marques[c.triangle] = valeur;
    }
}

/// Takes away what is reached from outside over long sides.
void ecarterLongs(const maillageTerrain& sol, double areteMax, std::vector<char>& garder)
{
    const auto dehors = [&](int t) { return t < 0 || !garder[static_cast<std::size_t>(t)]; };
    const auto seFerme = [&](int t) {
        for (int i = 0; i < 3; ++i) {
            const sommetSol &a = sol.debut(t, i), &b = sol.fin(t, i);
            if (dehors(sol.voisin(t, i)) && !sol.triangle(t).contrainte(i) &&
                std::hypot(b.x - a.x, b.y - a.y) > areteMax)
                return false;
        }
        return true;
    };
    std::vector<int> aVoir(sol.triangles().size());
    std::iota(aVoir.begin(), aVoir.end(), 0);
    while (!aVoir.empty()) {
        const int t = aVoir.back();
        aVoir.pop_back();
        if (dehors(t) || seFerme(t))
            continue;
        garder[static_cast<std::size_t>(t)] = 0;
        for (int i = 0; i < 3; ++i)
            if (const int autre = sol.voisin(t, i); !dehors(autre))
                aVoir.push_back(autre);
    }
}

} // namespace

std::vector<char> trianglesDuModele(const maillageTerrain& sol, const semisTerrain& semis)
{
    using genre = semisTerrain::genre;
    const auto est = [](genre nature) { return [nature](const semisTerrain::ligne& l) { return l.nature == nature; }; };
    const bool borne = std::any_of(semis.lignes.begin(), semis.lignes.end(), est(genre::limite));
    std::vector<char> garder(sol.triangles().size(), borne ? 0 : 1);
    const std::vector<centre> tous = centres(sol);
    for (const genre nature : {genre::limite, genre::trou})
        for (const semisTerrain::ligne& l : semis.lignes)
            if (l.nature == nature)
                marquer(tous, l, nature == genre::limite ? 1 : 0, garder);
    if (semis.areteMax > 0.0)
        ecarterLongs(sol, semis.areteMax, garder);
    return garder;
}
