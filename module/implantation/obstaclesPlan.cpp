#include "implantation/obstaclesPlan.h"

#include <cmath>
#include <numbers>

namespace {

constexpr double pi = std::numbers::pi;
constexpr double jeu = 1e-12; // of parts: what touches an end within rounding meets it

bool dansLeSegment(double part)
{
    return part >= -jeu && part <= 1.0 + jeu;
}

/// Parts of the infinite line at which it meets a circle: none, or two, which are one where it touches.
std::vector<double> surLaDroite(point2 a, point2 u, point2 centre, double rayon)
{
    const double carre = scalaire(u, u);
    if (!(carre > 0.0))
        return {};
    const double milieu = scalaire(centre - a, u) / carre;
    const double ecart = norme(centre - (a + u * milieu));
    if (ecart > rayon * (1.0 + jeu))
        return {};
    const double demi = std::sqrt(std::max(0.0, (rayon - ecart) * (rayon + ecart)) / carre);
    if (demi == 0.0)
        return {milieu};
    return {milieu - demi, milieu + demi};
}

/// A straight that runs along the segment.
std::vector<double> partage(point2 a, point2 u, point2 debut, point2 fin)
{
    const double carre = scalaire(u, u);
    double de = scalaire(debut - a, u) / carre, vers = scalaire(fin - a, u) / carre;
    if (de > vers)
        std::swap(de, vers);
    de = std::max(de, 0.0);
    vers = std::min(vers, 1.0);
    if (de > vers)
        return {};
    return de == vers ? std::vector{de} : std::vector{de, vers};
}

std::vector<double> avecDroite(point2 a, point2 b, point2 debut, point2 fin)
{
    const point2 u = b - a, v = fin - debut, w = debut - a;
    const double d = vectoriel(u, v), longueurs = norme(u) * norme(v);
    if (!(longueurs > 0.0))
        return {};
    if (std::abs(d) <= 1e-12 * longueurs) {
        const bool confondues = std::abs(vectoriel(u, w)) <= 1e-9 * norme(u);
        return confondues ? partage(a, u, debut, fin) : std::vector<double>();
    }
    const double part = vectoriel(w, v) / d, autre = vectoriel(w, u) / d;
    if (!dansLeSegment(part) || !dansLeSegment(autre))
        return {};
    return {part};
}

boite boiteDe(const elementAxe& e)
{
    boite b = boite::de(e.debut, e.pointA(e.longueur));
    if (!e.estArc())
        return b;
    const double rayon = 1.0 / std::abs(e.courbureDebut);
    const point2 centre = e.debut - droiteDe(e.direction) * (1.0 / e.courbureDebut);
    return boite{centre.x - rayon, centre.y - rayon, centre.x + rayon, centre.y + rayon};
}

} // namespace

std::vector<double> rencontres(point2 a, point2 b, point2 centre, double rayon)
{
    std::vector<double> parts = surLaDroite(a, b - a, centre, rayon);
    std::erase_if(parts, [](double part) { return !dansLeSegment(part); });
    return parts;
}

std::vector<double> rencontres(point2 a, point2 b, const elementAxe& element)
{
    if (!element.estArc())
        return avecDroite(a, b, element.debut, element.pointA(element.longueur));
    const double rayon = 1.0 / std::abs(element.courbureDebut);
    const point2 versDebut = droiteDe(element.direction) * (1.0 / element.courbureDebut);
    const point2 centre = element.debut - versDebut;
    const double sens = element.courbureDebut > 0.0 ? 1.0 : -1.0, angle = element.longueur / rayon;
    std::vector<double> parts = rencontres(a, b, centre, rayon);
    std::erase_if(parts, [&](double part) {
        const point2 versPoint = a + (b - a) * part - centre;
        double tourne = sens * std::atan2(vectoriel(versDebut, versPoint), scalaire(versDebut, versPoint));
        if (tourne < -1e-9)
            tourne += 2.0 * pi;
        return tourne > angle + 1e-9;
    });
    return parts;
}

std::size_t obstaclesPlan::ajouterLigne(const axe& ligne, double hauteur)
{
    for (const elementAxe& e : ligne.elements())
        m_pieces.push_back({e, 0.0, m_hauteurs.size()});
    m_hauteurs.push_back(hauteur);
    return m_hauteurs.size() - 1;
}

std::size_t obstaclesPlan::ajouterRond(point2 centre, double rayon, double hauteur)
{
    if (rayon > 0.0 && std::isfinite(rayon)) {
        piece p{{}, rayon, m_hauteurs.size()};
        p.element.debut = centre;
        m_pieces.push_back(p);
    }
    m_hauteurs.push_back(hauteur);
    return m_hauteurs.size() - 1;
}

void obstaclesPlan::indexer()
{
    std::vector<boite> boites;
    boites.reserve(m_pieces.size());
    for (const piece& p : m_pieces) {
        const point2 c = p.element.debut;
        boites.push_back(p.rayon > 0.0 ? boite{c.x - p.rayon, c.y - p.rayon, c.x + p.rayon, c.y + p.rayon}
                                       : boiteDe(p.element));
    }
    m_arbre = arbreBoites(boites);
}
