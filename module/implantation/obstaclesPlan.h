#pragma once

#include <vector>

#include "geometrie/axe.h"

/// Where a segment from `a` to `b` meets a stretch of axis (straight or arc), as parts of the segment (0 at `a`, 1 at
/// `b`), ends included. Of a straight that runs along the segment: the ends of what they share.
std::vector<double> rencontres(point2 a, point2 b, const elementAxe& element);
/// The same with a circle.
std::vector<double> rencontres(point2 a, point2 b, point2 centre, double rayon);

/// Obstacles as sights meet them, in the plane: lines along which something stands, and round things. A line or a
/// circle far from a sight costs it nothing.
class obstaclesPlan {
public:
    obstaclesPlan() = default;

    // Before the first question. @return the number of the obstacle, from 0

    std::size_t ajouterLigne(const axe& ligne, double hauteur);
    std::size_t ajouterRond(point2 centre, double rayon, double hauteur);
    void indexer();

    /// Above the ground.
    double hauteur(std::size_t obstacle) const { return m_hauteurs[obstacle]; }
    std::size_t nombre() const { return m_hauteurs.size(); }

    /// Calls `pour(part, obstacle)` for each place where the segment meets an obstacle, in no order.
    template <typename Pour>
    void croiser(point2 a, point2 b, Pour&& pour) const
    {
        m_arbre.surSegment(a, b, [&](std::size_t i) {
            const piece& p = m_pieces[i];
            for (const double part :
                 p.rayon > 0.0 ? rencontres(a, b, p.element.debut, p.rayon) : rencontres(a, b, p.element))
                pour(part, p.obstacle);
        });
    }

private:
    struct piece {
        elementAxe element; // its start is the centre of a circle
        double rayon;       // 0 for no circle
        std::size_t obstacle;
    };

    std::vector<double> m_hauteurs;
    std::vector<piece> m_pieces;
    arbreBoites m_arbre;
};
