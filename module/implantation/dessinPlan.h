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
    enum class calage { debut, milieu, fin }; ///< which part of a text stands at its place
    struct texte {
        point2 place; ///< on the base line
        std::wstring contenu;
        double hauteur;
        int couleur;
        double angle = 0.0;
        calage ancre = calage::debut;

        /// About what it covers when it is level: fonts differ, and a picture is not a drawing.
        boite emprise() const;
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
