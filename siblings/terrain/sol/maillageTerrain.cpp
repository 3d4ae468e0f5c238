#include "sol/maillageTerrain.h"

#include <algorithm>
#include <cmath>
#include <limits>

maillageTerrain::maillageTerrain(std::vector<sommetSol> sesSommets, std::vector<triangleSol> sesTriangles) :
    lesSommets(std::move(sesSommets)),
    lesTriangles(std::move(sesTriangles))
{
    for (std::size_t t = 0; t < lesTriangles.size(); ++t)
        for (int i = 0; i < 3; ++i)
            if (voisin(static_cast<int>(t), i) < 0)
                bord.push_back({static_cast<int>(t), i});
    mesurer();
    semerDeparts();
}

int maillageTerrain::coteEnFace(int t, int i) const
{
    const auto& enFace = triangle(voisin(t, i)).voisins;
    return static_cast<int>(std::find(enFace.begin(), enFace.end(), t) - enFace.begin());
}

void maillageTerrain::delimiter(const std::vector<char>& garder)
{
    for (std::size_t t = 0; t < lesTriangles.size(); ++t)
        lesTriangles[t].dedans = garder[t] != 0;
    mesurer();
}

void maillageTerrain::mesurer()
{
    if (lesSommets.empty())
        return;
    coinBas = coinHaut = lesSommets.front();
    for (const sommetSol& s : lesSommets) {
        coinBas = {std::min(coinBas.x, s.x), std::min(coinBas.y, s.y)};
        coinHaut = {std::max(coinHaut.x, s.x), std::max(coinHaut.y, s.y)};
    }
    dedans = 0;
    zMin = std::numeric_limits<double>::max();
    zMax = std::numeric_limits<double>::lowest();
    for (const triangleSol& t : lesTriangles) {
        if (!t.dedans)
            continue;
        ++dedans;
        for (const int s : t.sommets) {
            zMin = std::min(zMin, sommet(s).z);
            zMax = std::max(zMax, sommet(s).z);
        }
    }
    if (dedans == 0)
        zMin = zMax = 0.0;
}

// ---- places to begin a walk at

std::size_t maillageTerrain::cellule(const lieuSol& lieu) const
{
    // Held within the grid as a real: far away, a cell's number would not fit an integer.
    const auto rang = [](double ecart, double parUnite, int nombre) {
        return static_cast<std::size_t>(std::clamp(ecart * parUnite, 0.0, nombre - 1.0));
    };
    return rang(lieu.y - coinBas.y, parRangee, rangees) * static_cast<std::size_t>(colonnes) +
           rang(lieu.x - coinBas.x, parColonne, colonnes);
}

void maillageTerrain::semerDeparts()
{
    if (lesTriangles.empty())
        return;
    const double largeur = std::max(coinHaut.x - coinBas.x, 1e-9);
    const double hauteur = std::max(coinHaut.y - coinBas.y, 1e-9);
    // One cell for some three triangles: a walk of two or three steps.
    const double cellules = std::max(1.0, static_cast<double>(lesTriangles.size()) / 3.0);
    const double cote = std::sqrt(largeur * hauteur / cellules);
    const double plafond = cellules + 1.0;
    colonnes = static_cast<int>(std::clamp(std::ceil(largeur / cote), 1.0, plafond));
    rangees = static_cast<int>(std::clamp(std::ceil(hauteur / cote), 1.0, std::max(1.0, 2.0 * plafond / colonnes)));
    parColonne = colonnes / largeur;
    parRangee = rangees / hauteur;
    departs.assign(static_cast<std::size_t>(colonnes) * static_cast<std::size_t>(rangees), -1);
    for (int t = 0; t < static_cast<int>(lesTriangles.size()); ++t)
        for (int i = 0; i < 3; ++i)
            departs[cellule(coin(t, i))] = t;
    int dernier = 0;
    for (int& depart : departs)
        dernier = depart = depart >= 0 ? depart : dernier;
}

int maillageTerrain::departPres(const lieuSol& lieu) const
{
    return lesTriangles.empty() ? -1 : departs[cellule(lieu)];
}

double maillageTerrain::altitudeDans(int t, const lieuSol& lieu) const
{
    // Areas seen from the place itself: no precision is lost far from the origin.
    const sommetSol &a = coin(t, 0), &b = coin(t, 1), &c = coin(t, 2);
    const auto aire = [&lieu](const lieuSol& p, const lieuSol& q) {
        return std::max(0.0, (p.x - lieu.x) * (q.y - lieu.y) - (p.y - lieu.y) * (q.x - lieu.x));
    };
    const double enA = aire(b, c), enB = aire(c, a), enC = aire(a, b);
    const double total = enA + enB + enC;
    if (total <= 0.0) // a triangle without area
        return a.z;
    return a.z + ((b.z - a.z) * enB + (c.z - a.z) * enC) / total;
}
