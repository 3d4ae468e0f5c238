#pragma once

#include <array>
#include <string>
#include <vector>

#include "geometrie/plan.h"

/// A drawing as values: what becomes entities, or a picture in a report. Colours as the host numbers them, angles in
/// radians counter-clockwise from +X.
struct dessinPlan {
    struct trait {
        point2 de, vers;
        int couleur;
    };
    struct texte {
        point2 place; ///< left end of the base line, or its middle
        std::wstring contenu;
        double hauteur;
        int couleur;
        double angle = 0.0;
        bool centre = false;

        /// About as wide as it will be.
        double largeur() const { return 0.65 * hauteur * static_cast<double>(contenu.size()); }
    };
    struct triangle {
        std::array<point2, 3> coins;
        int couleur;
    };
    struct marque {
        point2 centre;
        double taille;
        int couleur;
    };
    std::vector<marque> croix; ///< with arms along the axes
    std::vector<trait> traits;
    std::vector<texte> textes;
    std::vector<triangle> triangles;

    void ajouter(const dessinPlan& autre);
    /// Grown from the origin, then moved.
    dessinPlan place(double echelle, point2 deplacement) const;
    /// Texts are taken as wide as their letters are as a rule, and level.
    boite etendue() const;
};
