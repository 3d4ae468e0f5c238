#pragma once

#include <optional>
#include <span>
#include <vector>

#include "geometrie/arbreBoites.h"
#include "services/grandeur.h"

/// A stretch of axis whose curvature runs evenly from start to end: a straight, an arc, a clothoid.
struct elementAxe {
    point2 debut;
    point2 direction{1.0, 0.0}; ///< of length 1
    double longueur = 0.0;
    double courbureDebut = 0.0, courbureFin = 0.0; ///< 1/radius, positive where it turns to the left
    double zDebut = inconnu, zFin = inconnu;       ///< altitudes run evenly between them; both known or none

    static elementAxe droite(point3 debut, point3 fin);
    /// @param bombement tangent of a quarter of the angle turned, positive to the left; 0 for a straight
    static elementAxe arc(point3 debut, point3 fin, double bombement);

    bool estDroit() const { return courbureDebut == 0.0 && courbureFin == 0.0; }
    bool estArc() const { return courbureDebut == courbureFin && courbureDebut != 0.0; }
    double variation() const { return longueur > 0.0 ? (courbureFin - courbureDebut) / longueur : 0.0; }
    double courbureA(double s) const { return courbureDebut + variation() * s; }
    /// `s` is a length from the start of the element; outside it, the curve goes on.
    point2 pointA(double s) const;
    point2 directionA(double s) const;
    double altitudeA(double s) const;
};

/// A vertex of a polyline, with the bulge of the segment that leaves it.
struct sommetAxe {
    point3 place;
    double bombement = 0.0;
};

/// A line along which places have a chainage (length from its start), an offset (positive to the right) and, where it
/// has altitudes, a height. Elements follow one another end to start; those without length are left out.
class axe {
public:
    axe() = default;
    /// @param ferme whether its end is its start
    explicit axe(std::vector<elementAxe> elements, bool ferme = false);
    /// Altitudes that are `inconnu` stay so. A closed one comes back to its first vertex.
    static axe deSommets(std::span<const sommetAxe> sommets, bool ferme);

    bool vide() const { return m_elements.empty(); }
    bool ferme() const { return m_ferme; }
    double longueur() const { return m_debuts.empty() ? 0.0 : m_debuts.back(); }
    const std::vector<elementAxe>& elements() const { return m_elements; }
    /// Length from the start of the axis to that of the element; of the number of elements, the whole length.
    double debutElement(std::size_t element) const { return m_debuts[element]; }
    /// Element at a length; at the place between two, the second.
    std::size_t elementA(double longueur) const;

    // An axis that is not empty:

    /// Before its start and beyond its end the axis goes straight on, at the altitude of its end. Of two tangents at a
    /// vertex, the one that leaves it.
    point2 pointA(double longueur) const;
    point2 directionA(double longueur) const;
    double altitudeA(double longueur) const;
    /// The place square to the axis, `decalage` to its right, at the altitude of the axis.
    point3 decale(double longueur, double decalage) const;

    struct projection {
        std::size_t element;
        double longueur; ///< chainage of the foot
        point3 pied;
        point2 direction; ///< of the axis there; at a vertex, between its two sides
        double decalage;  ///< off the axis, positive to the right; at an end, off its tangent
        double distance;  ///< from the foot, in the plane
        bool auDela;      ///< the foot is an end of an open axis, and not square to the point
    };
    /// The nearest place of the axis, the first of equals. The axis is not empty, the coordinates are finite.
    projection projeter(point2 p) const;
    /// The same, or nothing farther than `limite`.
    std::optional<projection> projeter(point2 p, double limite) const;

    /// Chainages of start, vertices and end.
    std::vector<double> sommets() const { return m_debuts; }
    /// Every multiple of `pas` (above 0) from the start, and the end. An end as good as at a multiple is not doubled.
    std::vector<double> jalons(double pas) const;

private:
    /// A part of an element that turns little, so that its nearest place is found without doubt.
    struct morceau {
        std::size_t element;
        double de, a;
    };
    double plusProche(const morceau& m, point2 p) const;
    projection projectionSur(const morceau& m, point2 p) const;

    std::vector<elementAxe> m_elements;
    std::vector<double> m_debuts; // one more than elements
    std::vector<morceau> m_morceaux;
    arbreBoites m_arbre; // of the pieces
    bool m_ferme = false;
};

/// Vertices of straight lines that stay within `fleche` (above 0) of the axis; those of the axis are among them. A
/// closed one ends with its first vertex again.
std::vector<point3> polyligneDe(const axe& a, double fleche);
/// How many chords of equal length stay within `fleche` of the element.
double nombreCordes(const elementAxe& element, double fleche);
