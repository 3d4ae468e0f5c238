#include "tools/deplacementPoints.h"

#include "geometrie/arbreBoites.h"

std::vector<point3> deportesDuVecteur(std::span<const pointNomme> points, point3 vecteur)
{
    std::vector<point3> places;
    for (const pointNomme& p : points)
        places.push_back(
            {p.place.x + vecteur.x, p.place.y + vecteur.y, (grandeur(p.place.z) + grandeur(vecteur.z)).valeur()});
    return places;
}

std::vector<point3> deportesDeLAxe(std::span<const pointNomme> points, const axe& ligne, double distance)
{
    std::vector<point3> places;
    for (const pointNomme& p : points) {
        const axe::projection pied = ligne.projeter(p.place.plan());
        const point2 place = p.place.plan() + droiteDe(pied.direction) * distance;
        places.push_back({place.x, place.y, p.place.z});
    }
    return places;
}

std::vector<point3> deportesSurLAxe(std::span<const pointNomme> points, const axe& ligne)
{
    std::vector<point3> places;
    for (const pointNomme& p : points) {
        const axe::projection pied = ligne.projeter(p.place.plan());
        places.push_back({pied.pied.x, pied.pied.y, p.place.z});
    }
    return places;
}

std::vector<double> altitudesDecalees(std::span<const pointNomme> points, double decalage)
{
    std::vector<double> altitudes;
    for (const pointNomme& p : points)
        altitudes.push_back((grandeur(p.place.z) + grandeur(decalage)).valeur());
    return altitudes;
}

std::vector<double> altitudesEnPente(std::span<const pointNomme> points, point3 de, point3 a)
{
    const double carre = carreDistance(de.plan(), a.plan());
    std::vector<double> altitudes;
    if (!(carre > 0.0))
        return altitudes;
    for (const pointNomme& p : points)
        altitudes.push_back(de.z + (a.z - de.z) * (scalaire(p.place.plan() - de.plan(), a.plan() - de.plan()) / carre));
    return altitudes;
}

std::vector<double> altitudesDeLAxe(std::span<const pointNomme> points, const axe& ligne)
{
    std::vector<double> altitudes;
    for (const pointNomme& p : points)
        altitudes.push_back(ligne.projeter(p.place.plan()).pied.z);
    return altitudes;
}

std::vector<double> altitudesVoisines(std::span<const pointNomme> points, std::span<const point3> cotes,
                                      double distance)
{
    std::vector<boite> boites;
    for (const point3& cote : cotes)
        boites.push_back(boite::de(cote.plan(), cote.plan()));
    const arbreBoites arbre(boites);
    std::vector<double> altitudes;
    for (const pointNomme& p : points) {
        const auto voisin = arbre.plusProche(
            p.place.plan(), [&](std::size_t i) { return carreDistance(p.place.plan(), cotes[i].plan()); },
            distance * distance);
        altitudes.push_back(voisin ? cotes[voisin.item].z : inconnu);
    }
    return altitudes;
}
