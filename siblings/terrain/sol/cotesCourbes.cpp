#include "sol/cotesCourbes.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// A line by the way along it.
class parAbscisse {
public:
    explicit parAbscisse(const courbeNiveau& courbe) : points(courbe.points)
    {
        if (courbe.fermee)
            points.push_back(points.front());
        abscisses.push_back(0.0);
        for (std::size_t i = 1; i < points.size(); ++i)
            abscisses.push_back(abscisses.back() +
                                std::hypot(points[i].x - points[i - 1].x, points[i].y - points[i - 1].y));
    }

    double longueur() const { return abscisses.back(); }
    lieuSol en(double s) const
    {
        const std::size_t i = segment(s);
        const double part = (s - abscisses[i]) / (abscisses[i + 1] - abscisses[i]);
        return {points[i].x + part * (points[i + 1].x - points[i].x),
                points[i].y + part * (points[i + 1].y - points[i].y)};
    }
    /// From one place to another, both on it.
    std::vector<lieuSol> entre(double s, double t) const
    {
        std::vector<lieuSol> partie{en(s)};
        for (std::size_t i = segment(s) + 1; i < points.size() && abscisses[i] < t; ++i)
            if (abscisses[i] > s)
                partie.push_back(points[i]);
        partie.push_back(en(t));
        return partie;
    }

private:
    std::size_t segment(double s) const
    {
        const auto apres = std::upper_bound(abscisses.begin() + 1, abscisses.end() - 1, s);
        return static_cast<std::size_t>(apres - abscisses.begin()) - 1;
    }

    std::vector<lieuSol> points;
    std::vector<double> abscisses;
};

double corde(const parAbscisse& ligne, double milieu, double largeur)
{
    const lieuSol p = ligne.en(milieu - largeur / 2), q = ligne.en(milieu + largeur / 2);
    return std::hypot(q.x - p.x, q.y - p.y);
}

/// The middle of the straightest stretch of `largeur` between two places.
double placeLaPlusDroite(const parAbscisse& ligne, double debut, double fin, double largeur)
{
    constexpr int essais = 24;
    double meilleure = (debut + fin) / 2, plusLongue = 0.0;
    // From the middle outwards, so that of stretches as straight the middle one is taken.
    for (int i = 0; i <= essais; ++i) {
        const double ecart = (i % 2 == 0 ? 0.5 : -0.5) * static_cast<double>((i + 1) / 2 * 2) / essais;
        const double s = (debut + fin) / 2 + ecart * (fin - debut - largeur);
        const double longue = corde(ligne, s, largeur);
        if (longue > plusLongue * (1.0 + 1e-6)) {
            plusLongue = longue;
            meilleure = s;
        }
    }
    return meilleure;
}

} // namespace

courbeCotee coter(const courbeNiveau& courbe, double largeur, double espacement)
{
    courbeCotee cotee;
    const parAbscisse ligne(courbe);
    const double longueur = ligne.longueur();
    constexpr double courteAuMoins = 3.0, droiteAuMoins = 0.8; // text widths; chord against its arc
    if (!(longueur > courteAuMoins * largeur)) {
        cotee.troncons.push_back(courbe);
        return cotee;
    }
    const int nombre = static_cast<int>(std::clamp(std::floor(longueur / espacement), 1.0, 10000.0));
    std::vector<double> places;
    for (int i = 0; i < nombre; ++i) {
        const double s = placeLaPlusDroite(ligne, i * longueur / nombre, (i + 1) * longueur / nombre, largeur);
        if (corde(ligne, s, largeur) < droiteAuMoins * largeur)
            continue;
        const lieuSol p = ligne.en(s - largeur / 2), q = ligne.en(s + largeur / 2);
        cotee.cotes.push_back({{(p.x + q.x) / 2, (p.y + q.y) / 2}, std::atan2(q.y - p.y, q.x - p.x)});
        places.push_back(s);
    }
    if (places.empty()) {
        cotee.troncons.push_back(courbe);
        return cotee;
    }
    double debut = 0.0;
    for (const double s : places) {
        cotee.troncons.push_back({courbe.altitude, false, ligne.entre(debut, s - largeur / 2)});
        debut = s + largeur / 2;
    }
    std::vector<lieuSol> reste = ligne.entre(debut, longueur);
    if (courbe.fermee) { // what follows the last text goes on before the first
        std::vector<lieuSol>& premier = cotee.troncons.front().points;
        reste.insert(reste.end(), premier.begin() + 1, premier.end());
        premier = std::move(reste);
    } else {
        cotee.troncons.push_back({courbe.altitude, false, std::move(reste)});
    }
    return cotee;
}
