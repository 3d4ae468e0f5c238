#include "geometrie/arbreBoites.h"

#include <stdexcept>

namespace {

/// Place of a cell of a 65536 by 65536 grid along the Hilbert curve, by halving the grid from the coarsest level on.
std::uint32_t rangHilbert(std::uint32_t x, std::uint32_t y)
{
    std::uint32_t rang = 0;
    for (std::uint32_t cote = 1u << 15; cote > 0; cote >>= 1) {
        const std::uint32_t droite = (x & cote) ? 1 : 0, haut = (y & cote) ? 1 : 0;
        rang = rang * 4 + ((3 * droite) ^ haut);
        if (!haut) { // the curve enters and leaves its lower quarters turned
            if (droite) {
                x = ~x;
                y = ~y;
            }
            std::swap(x, y);
        }
    }
    return rang;
}

std::uint32_t cellule(double valeur, double debut, double etendue)
{
    const double part = etendue > 0.0 ? (valeur - debut) / etendue : 0.0;
    return static_cast<std::uint32_t>(std::clamp(part, 0.0, 1.0) * 65535.0);
}

struct range {
    std::uint32_t rang, item;
    bool operator<(const range& autre) const { return rang != autre.rang ? rang < autre.rang : item < autre.item; }
};

std::vector<range> surLaCourbe(std::span<const boite> boites, const boite& tout)
{
    std::vector<range> ordre;
    ordre.reserve(boites.size());
    for (std::size_t i = 0; i < boites.size(); ++i)
        if (const boite& b = boites[i]; !b.vide())
            ordre.push_back({rangHilbert(cellule((b.xMin + b.xMax) / 2, tout.xMin, tout.xMax - tout.xMin),
                                         cellule((b.yMin + b.yMax) / 2, tout.yMin, tout.yMax - tout.yMin)),
                             static_cast<std::uint32_t>(i)});
    std::sort(ordre.begin(), ordre.end());
    return ordre;
}

} // namespace

arbreBoites::arbreBoites(std::span<const boite> boites)
{
    if (boites.size() > UINT32_MAX)
        throw std::length_error("arbreBoites: plus de 4 milliards de rectangles");
    boite tout;
    for (const boite& b : boites)
        if (!b.vide())
            tout.ajouter(b);
    for (const range& r : surLaCourbe(boites, tout)) {
        m_boites.push_back(boites[r.item]);
        m_items.push_back(r.item);
    }
    m_nombre = m_boites.size();
    m_finEtage.push_back(m_nombre);
    for (std::size_t debut = 0; m_boites.size() - debut > 1;) {
        const std::size_t fin = m_boites.size();
        for (std::size_t premier = debut; premier < fin; premier += largeur) {
            boite noeud;
            for (std::size_t i = premier; i < std::min(premier + largeur, fin); ++i)
                noeud.ajouter(m_boites[i]);
            m_boites.push_back(noeud);
            m_premiers.push_back(premier);
        }
        m_finEtage.push_back(m_boites.size());
        debut = fin;
    }
}

std::vector<std::size_t> ordreDeProximite(std::span<const point2> lieux)
{
    std::vector<boite> boites;
    std::vector<std::size_t> ordre, derniers;
    boite tout;
    for (std::size_t i = 0; i < lieux.size(); ++i) {
        const bool fini = std::isfinite(lieux[i].x) && std::isfinite(lieux[i].y);
        boites.push_back(fini ? boite::de(lieux[i], lieux[i]) : boite());
        if (fini)
            tout.ajouter(boites.back());
        else
            derniers.push_back(i);
    }
    for (const range& r : surLaCourbe(boites, tout))
        ordre.push_back(r.item);
    ordre.insert(ordre.end(), derniers.begin(), derniers.end());
    return ordre;
}
