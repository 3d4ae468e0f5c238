#pragma once

#include <string>
#include <vector>

#include "geometrie/axe.h"

/// Map grids: crosses within a region, ticks and coordinates on its border. Values only; lengths in drawing units.

struct parametresCarroyage {
    double pasX = 100.0, pasY = 100.0;
    double tailleCroix = 5.0; ///< whole length of an arm; also the unit of ticks and of how far labels stand off
    double tailleTextes = 2.0;
    int decimales = 2;
    bool ecrituresInternes = false;
};
/// Bounds of every length of a grid.
inline constexpr double longueurCarroyageMin = 1e-6, longueurCarroyageMax = 1e36;

struct dessinCarroyage {
    struct trait {
        point2 de, a;
    };
    struct texte {
        point2 place;          ///< right end of the bottom, or left end of the baseline
        double rotation = 0.0; ///< radians
        bool aDroite = false;
        std::string contenu;
    };
    std::vector<trait> traits;
    std::vector<texte> textes;
};

/// About how many nodes a grid visits: the cost of making it.
double noeudsDuCarroyage(const axe& contour, const parametresCarroyage& parametres);

/// The grid of the region that `contour` bounds; an open one is taken to end where it starts, its last vertex dropped.
/// What is inside is told by counting borders. A row or column along a border counts as far as the region lies on both
/// its sides, so that the border itself bears no crosses. Cost: the crossings of rows and columns with the outline,
/// sorted along each, and the nodes inside.
dessinCarroyage carroyage(const axe& contour, const parametresCarroyage& parametres);
