#include "calculs/reseau/fiabiliteReseau.h"

#include <algorithm>
#include <cmath>

#include "calculs/reseau/loisStatistiques.h"

namespace {

/// Non-centrality for a risk of 0.1 % and a power of 80 %, after Baarda.
constexpr double delta0 = 4.132;
/// Less redundancy than that is rounding: nothing checks the observation.
constexpr double redondanceNulle = 1e-7;

/// bᵀ·Q·b, of unknowns that one observation or its block joins.
double forme(const systemeReseau& s, const std::vector<std::pair<int, double>>& b)
{
    double somme = 0.0;
    for (std::size_t i = 0; i < b.size(); ++i)
        for (std::size_t j = 0; j <= i; ++j)
            somme += (i == j ? 1.0 : 2.0) * b[i].second * b[j].second * s.matrice().inverse(b[i].first, b[j].first);
    return somme;
}

/// How far the points of an observation move when its measure changes by one unit: the largest of them.
double deplacementParUnite(const reseau& r, const systemeReseau& s, const espaceLibre& libre, int place,
                           const std::vector<std::pair<int, double>>& b)
{
    const observationReseau& o =
        r.observations[static_cast<std::size_t>(s.retenues()[static_cast<std::size_t>(place)])];
    double plusLoin = 0.0;
    for (const int point : {o.de, o.vers, o.vers2}) {
        double carre = 0.0;
        for (int axe = 0; point >= 0 && axe < 3; ++axe) {
            const int inconnue = s.inconnueDe(3 * point + axe);
            if (inconnue < 0)
                continue;
            double d = 0.0;
            for (const auto& [autre, coefficient] : b)
                d += coefficient * libre.cofacteur(s, inconnue, autre);
            carre += d * d;
        }
        plusLoin = std::max(plusLoin, std::sqrt(carre));
    }
    return plusLoin;
}

} // namespace

controleObservation controleDe(const systemeReseau& s, int place)
{
    std::vector<std::pair<int, double>> b;
    s.colonneNormale(place, b);
    return {-s.residuPese(place), s.poids(place) - forme(s, b)};
}

std::vector<double> redondancesDe(const systemeReseau& s)
{
    std::vector<double> redondances(s.retenues().size());
    for (std::size_t k = 0; k < redondances.size(); ++k) {
        const int place = static_cast<int>(k);
        redondances[k] = std::clamp(controleDe(s, place).h / s.poids(place), 0.0, 1.0);
    }
    return redondances;
}

ellipseErreur ellipseDe(double sxx, double syy, double sxy)
{
    const double milieu = 0.5 * (sxx + syy), ecart = std::hypot(0.5 * (sxx - syy), sxy);
    ellipseErreur e;
    e.a = std::sqrt(std::max(milieu + ecart, 0.0));
    e.b = std::sqrt(std::max(milieu - ecart, 0.0));
    // Clockwise from north: x plays the part of the sine.
    e.gisement = 0.5 * std::atan2(2.0 * sxy, syy - sxx);
    if (e.gisement < 0.0)
        e.gisement += pi;
    return e;
}

void rendrePrecisions(const reseau& r, const systemeReseau& s, const espaceLibre& libre, resultatReseau& resultat)
{
    const double variance = std::pow(resultat.s0Pris(r), 2.0);
    for (std::size_t p = 0; p < r.points.size(); ++p) {
        pointCompense& rendu = resultat.points[p];
        const auto inconnue = [&](int axe) { return s.inconnueDe(static_cast<int>(3 * p) + axe); };
        if (rendu.planCherche) {
            const int x = inconnue(0), y = inconnue(1);
            const double sxx = variance * libre.cofacteur(s, x, x), syy = variance * libre.cofacteur(s, y, y);
            rendu.cxy = variance * libre.cofacteur(s, x, y);
            rendu.sx = std::sqrt(std::max(sxx, 0.0));
            rendu.sy = std::sqrt(std::max(syy, 0.0));
            rendu.ellipse = ellipseDe(sxx, syy, rendu.cxy);
        }
        if (rendu.altitudeCherchee)
            rendu.sz = std::sqrt(std::max(variance * libre.cofacteur(s, inconnue(2), inconnue(2)), 0.0));
    }
}

void rendreFiabilite(const reseau& r, const systemeReseau& s, const espaceLibre& libre, resultatReseau& resultat)
{
    const double s0 = resultat.s0Pris(r);
    std::vector<std::pair<int, double>> b;
    for (std::size_t k = 0; k < s.retenues().size(); ++k) {
        const int place = static_cast<int>(k);
        observationCompensee& m = resultat.mesures[static_cast<std::size_t>(s.retenues()[k])];
        const controleObservation c = controleDe(s, place);
        m.redondance = std::clamp(c.h / s.poids(place), 0.0, 1.0);
        if (m.redondance < redondanceNulle) {
            m.redondance = 0.0;
            continue;
        }
        if (resultat.degresDeLiberte > 0 && s0 > 0.0)
            m.normalise = c.g / std::sqrt(c.h) / s0;
        s.colonneNormale(place, b);
        m.erreurDetectable = delta0 * r.sigma / std::sqrt(c.h);
        m.effet = m.erreurDetectable * deplacementParUnite(r, s, libre, place, b);
        if (resultat.degresDeLiberte > 1)
            if (const double chute = c.g * c.g / c.h; chuteConnue(resultat.sommePvv, chute))
                m.s0Sans = std::sqrt((resultat.sommePvv - chute) / (resultat.degresDeLiberte - 1));
    }
}

void bornesS0(const reseau& r, resultatReseau& resultat)
{
    const int f = resultat.degresDeLiberte;
    const double reste = 0.5 * (1.0 - r.confiance);
    resultat.s0Bas = r.sigma * std::sqrt(quantileKhi2(reste, f) / f);
    resultat.s0Haut = r.sigma * std::sqrt(quantileKhi2(1.0 - reste, f) / f);
    resultat.horsTolerance = resultat.s0 < resultat.s0Bas || resultat.s0 > resultat.s0Haut;
}
