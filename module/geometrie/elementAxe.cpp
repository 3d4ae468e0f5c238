#include "geometrie/axe.h"
#include "geometrie/clothoide.h"

elementAxe elementAxe::droite(point3 debut, point3 fin)
{
    return arc(debut, fin, 0.0);
}

elementAxe elementAxe::arc(point3 debut, point3 fin, double bombement)
{
    const point2 corde = fin.plan() - debut.plan();
    elementAxe e;
    e.debut = debut.plan();
    e.longueur = norme(corde);
    if (debut.z != inconnu && fin.z != inconnu) {
        e.zDebut = debut.z;
        e.zFin = fin.z;
    }
    if (!(e.longueur > 0.0))
        return e;
    e.direction = corde * (1.0 / e.longueur);
    if (bombement == 0.0)
        return e;
    const double tourne = 4.0 * std::atan(bombement);
    e.courbureDebut = e.courbureFin = 2.0 * std::sin(tourne / 2.0) / e.longueur;
    e.direction = tourner(e.direction, -tourne / 2.0);
    e.longueur = tourne / e.courbureDebut;
    return e;
}

point2 elementAxe::pointA(double s) const
{
    if (estDroit())
        return debut + direction * s;
    const point2 p = finDeCourbe(courbureDebut, variation(), s);
    return debut + direction * p.x - droiteDe(direction) * p.y;
}

point2 elementAxe::directionA(double s) const
{
    return estDroit() ? direction : tourner(direction, s * (courbureDebut + variation() * s / 2.0));
}

double elementAxe::altitudeA(double s) const
{
    if (zDebut == inconnu || !(longueur > 0.0))
        return zDebut;
    return zDebut + (zFin - zDebut) * (s / longueur);
}

double nombreCordes(const elementAxe& element, double fleche)
{
    // A curve of length l and curvature at most k strays by k·l²/8 from its chord.
    const double courbure = std::max(std::abs(element.courbureDebut), std::abs(element.courbureFin));
    return std::clamp(std::ceil(element.longueur * std::sqrt(courbure / (8.0 * fleche))), 1.0, 1e6);
}
