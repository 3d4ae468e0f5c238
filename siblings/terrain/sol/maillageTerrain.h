#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "sol/sommetSol.h"

/// One triangle of the ground, counter-clockwise. Side i is the one opposite to vertex i.
struct triangleSol {
    std::array<int, 3> sommets{};
    std::array<int, 3> voisins{-1, -1, -1}; ///< triangle across each side; -1 beyond the hull
    std::uint8_t contraintes = 0;           ///< bit i: side i is part of a constraint
    bool dedans = true;                     ///< part of the model: not beyond its limit, not in a hole

    bool contrainte(int cote) const { return (contraintes >> cote & 1U) != 0; }
};

/// A side of a triangle.
struct coteSol {
    int triangle = -1;
    int cote = 0;
};

/// A triangulated ground, as plain arrays. The triangles cover the convex hull of the vertices without gap, so that a
/// walk never meets a wall; those that do not belong to the model say so.
class maillageTerrain {
public:
    maillageTerrain() = default;
    /// Takes the arrays over; neighbours must be right.
    maillageTerrain(std::vector<sommetSol> sesSommets, std::vector<triangleSol> sesTriangles);

    const std::vector<sommetSol>& sommets() const { return lesSommets; }
    const std::vector<triangleSol>& triangles() const { return lesTriangles; }
    /// Sides on the hull.
    const std::vector<coteSol>& enveloppe() const { return bord; }
    bool vide() const { return lesTriangles.empty(); }
    /// How many triangles belong to the model.
    int nombreDedans() const { return dedans; }

    const triangleSol& triangle(int t) const { return lesTriangles[static_cast<std::size_t>(t)]; }
    const sommetSol& sommet(int s) const { return lesSommets[static_cast<std::size_t>(s)]; }
    /// Corner i of a triangle.
    const sommetSol& coin(int t, int i) const { return sommet(triangle(t).sommets[static_cast<std::size_t>(i)]); }
    int voisin(int t, int i) const { return triangle(t).voisins[static_cast<std::size_t>(i)]; }
    /// The corner that side i leaves, and the one it reaches, with the triangle on its left.
    const sommetSol& debut(int t, int i) const { return coin(t, (i + 1) % 3); }
    const sommetSol& fin(int t, int i) const { return coin(t, (i + 2) % 3); }
    /// The side of a neighbour that lies on side i of a triangle.
    int coteEnFace(int t, int i) const;

    /// Has the memory fetch the triangles around one: the next of a walk is among them.
    void annoncerVoisins(int t) const
    {
        for (const int v : triangle(t).voisins)
            if (v >= 0)
                __builtin_prefetch(&lesTriangles[static_cast<std::size_t>(v)]);
    }

    /// Says which triangles belong to the model.
    void delimiter(const std::vector<char>& garder);

    /// Of the vertices; a model has some.
    lieuSol minimum() const { return coinBas; }
    lieuSol maximum() const { return coinHaut; }
    double altitudeMin() const { return zMin; }
    double altitudeMax() const { return zMax; }

    /// A triangle near a place, to begin a walk at; -1 without triangles. Constant time.
    int departPres(const lieuSol& lieu) const;
    /// Altitude of a triangle's plane; at a corner exactly the corner's.
    double altitudeDans(int t, const lieuSol& lieu) const;

private:
    std::size_t cellule(const lieuSol& lieu) const;
    void mesurer();
    void semerDeparts();

    std::vector<sommetSol> lesSommets;
    std::vector<triangleSol> lesTriangles;
    std::vector<coteSol> bord;
    int dedans = 0;
    lieuSol coinBas, coinHaut;
    double zMin = 0.0, zMax = 0.0; // of what belongs to the model
    // A grid over the ground: in each cell a triangle that lies there, or near.
    std::vector<int> departs;
    int colonnes = 0, rangees = 0;
    double parColonne = 0.0, parRangee = 0.0; // cells a unit
};
