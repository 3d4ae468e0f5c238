#pragma once

#include <array>
#include <cstdint>
#include <queue>
#include <span>
#include <vector>

#include "geometrie/plan.h"

/// Finds rectangles by place: a packed tree over rectangles sorted along a curve that keeps neighbours together. Made
/// once, in the time of a sort; a search costs the logarithm of the number of rectangles and what it finds. Items are
/// the positions in what it was made of; empty rectangles, and those of no number, are never found.
class arbreBoites {
public:
    arbreBoites() = default;
    explicit arbreBoites(std::span<const boite> boites);

    std::size_t nombre() const { return m_nombre; }
    /// Of all.
    boite etendue() const { return m_boites.empty() ? boite() : m_boites.back(); }

    /// Calls `pour(item)` for each item whose rectangle touches `zone`, in no order.
    template <typename Pour>
    void dans(const boite& zone, Pour&& pour) const
    {
        parcourir([&](const boite& b) { return b.touche(zone); }, pour);
    }
    /// The same for those that the segment from `a` to `b` meets.
    template <typename Pour>
    void surSegment(point2 a, point2 b, Pour&& pour) const
    {
        parcourir([&](const boite& rectangle) { return rectangle.touche(a, b); }, pour);
    }

    struct voisin {
        std::size_t item = SIZE_MAX; ///< SIZE_MAX when there is none
        double carre = std::numeric_limits<double>::infinity();
        explicit operator bool() const { return item != SIZE_MAX; }
    };
    /// The item nearest to `p`, the first of equals. `carre(item)` gives the square of an item's distance, which is at
    /// least that of its rectangle; it is asked for few. Items farther than `limite` (squared) do not count.
    template <typename Carre>
    voisin plusProche(point2 p, Carre&& carre, double limite = std::numeric_limits<double>::infinity()) const
    {
        struct attente {
            double carre;
            std::size_t place;
            bool operator<(const attente& autre) const { return carre > autre.carre; }
        };
        voisin meilleur;
        meilleur.carre = limite;
        std::vector<attente> memoire;
        memoire.reserve(8 * largeur); // enough as a rule, so that a search asks for memory once
        std::priority_queue<attente> file({}, std::move(memoire));
        if (!m_boites.empty())
            file.push({etendue().carreDistance(p), m_boites.size() - 1});
        while (!file.empty() && file.top().carre <= meilleur.carre) {
            const std::size_t place = file.top().place;
            file.pop();
            if (place < m_nombre) {
                const std::size_t item = m_items[place];
                const double d = carre(item);
                if (d < meilleur.carre || (d == meilleur.carre && item < meilleur.item))
                    meilleur = {item, d};
                continue;
            }
            const auto [premier, dernier] = enfants(place);
            for (std::size_t i = premier; i < dernier; ++i)
                if (const double d = m_boites[i].carreDistance(p); d <= meilleur.carre)
                    file.push({d, i});
        }
        return meilleur;
    }

private:
    static constexpr std::size_t largeur = 8; // children of a node

    struct plage {
        std::size_t premier, dernier;
    };
    /// Places of the children of the node at `place`.
    plage enfants(std::size_t place) const
    {
        const std::size_t premier = m_premiers[place - m_nombre];
        return {premier, std::min(premier + largeur, m_finEtage[etageDe(place) - 1])};
    }
    std::size_t etageDe(std::size_t place) const
    {
        std::size_t etage = 0;
        while (place >= m_finEtage[etage])
            ++etage;
        return etage;
    }
    template <typename Test, typename Pour>
    void parcourir(Test&& touche, Pour&& pour) const
    {
        std::array<std::size_t, 64 * largeur> pile; // 64 levels would hold more items than there are
        std::size_t hauteur = 0;
        if (!m_boites.empty() && touche(m_boites.back()))
            pile[hauteur++] = m_boites.size() - 1;
        while (hauteur > 0) {
            const std::size_t place = pile[--hauteur];
            if (place < m_nombre) {
                pour(static_cast<std::size_t>(m_items[place]));
                continue;
            }
            const auto [premier, dernier] = enfants(place);
            for (std::size_t i = premier; i < dernier; ++i)
                if (touche(m_boites[i]))
                    pile[hauteur++] = i;
        }
    }

    std::size_t m_nombre = 0;
    std::vector<boite> m_boites;         // of the items along the curve, then of each level, the root last
    std::vector<std::uint32_t> m_items;  // what stands at each place of the lowest level
    std::vector<std::size_t> m_premiers; // first child of each node
    std::vector<std::size_t> m_finEtage; // end of each level in m_boites
};

/// The places in an order that keeps neighbours together: of many searches, each finds what the one before has left at
/// hand. Places that are not finite come last.
std::vector<std::size_t> ordreDeProximite(std::span<const point2> lieux);
