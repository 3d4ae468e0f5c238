#include "geometrie/clothoide.h"

#include <iterator>

namespace {

/// Abscissas and weights of the Gauss-Legendre rule of ten points, half of them: it is exact to the degree 19.
constexpr double noeuds[] = {0.1488743389816312, 0.4333953941292472, 0.6794095682990244, 0.8650633666889845,
                             0.9739065285171717};
constexpr double poids[] = {0.2955242247147529, 0.2692667193099963, 0.2190863625159820, 0.1494513491505806,
                            0.0666713443086881};

/// On a panel that turns so little the rule's error is below the last digit.
constexpr double angleParPanneau = 0.75;
constexpr double panneauxAuPlus = 1e6;

} // namespace

point2 finDeCourbe(double courbure, double variation, double longueur)
{
    const auto angle = [&](double s) { return s * (courbure + variation * s / 2.0); };
    if (variation == 0.0) { // the chord of an arc, half its angle from the start
        const double demi = courbure * longueur / 2.0;
        const double corde = std::abs(demi) > 1e-8 ? longueur * std::sin(demi) / demi : longueur;
        return {corde * std::cos(demi), corde * std::sin(demi)};
    }
    const double tourne = (std::abs(courbure) + std::abs(variation * longueur)) * std::abs(longueur);
    const double panneaux = std::clamp(std::ceil(tourne / angleParPanneau), 1.0, panneauxAuPlus);
    const double demi = longueur / panneaux / 2.0;
    point2 fin;
    for (double i = 0.0; i < panneaux; i += 1.0) {
        const double milieu = (2.0 * i + 1.0) * demi;
        for (std::size_t k = 0; k < std::size(noeuds); ++k)
            for (const double s : {milieu - noeuds[k] * demi, milieu + noeuds[k] * demi})
                fin = fin + point2{std::cos(angle(s)), std::sin(angle(s))} * (poids[k] * demi);
    }
    return fin;
}

elementsClothoide clothoideDe(double R, double L)
{
    elementsClothoide c;
    c.R = R;
    c.L = L;
    c.A = std::sqrt(R * L);
    c.tau = L / (2.0 * R);
    const point2 fin = finDeCourbe(0.0, 1.0 / (R * L), L);
    c.X = fin.x;
    c.Y = fin.y;
    c.deltaR = c.Y - R * (1.0 - std::cos(c.tau));
    c.Xm = c.X - R * std::sin(c.tau);
    c.tangenteCourte = c.Y / std::sin(c.tau);
    c.tangenteLongue = c.X - c.Y / std::tan(c.tau);
    return c;
}
