#pragma once

#include <string>
#include <vector>

#include "calculs/reseau/resultatReseau.h"

/// A network as a picture: what reports, dialogs and drawings show of it. Coordinates as in the network, angles of
/// ellipses as bearings.
struct figurePlane {
    struct place {
        double x = 0.0, y = 0.0;
    };
    struct point {
        place ou;
        std::wstring nom;
        bool connu = false; ///< held, or only placed on
        bool appui = false;
    };
    struct cote {
        place de, vers;
        bool suspect = false;
    };
    struct ellipse {
        place centre;
        double a = 0.0, b = 0.0, gisement = 0.0; ///< half axes already enlarged
    };
    struct vecteur {
        place de, vers; ///< from the approximate place to the adjusted one, enlarged
    };
    std::vector<cote> cotes; ///< each pair of points that some observation joins, once
    std::vector<point> points;
    std::vector<ellipse> ellipses;
    std::vector<vecteur> vecteurs;
    double echelle = 1.0; ///< how many times ellipses and vectors are enlarged
};

/// @param echelle of ellipses and vectors; 0: a round one with which the larger ellipses are well seen
/// @param confiance 0: standard ellipses; otherwise those that hold the point with this probability
figurePlane figureDe(const reseau& r, const resultatReseau& resultat, double echelle = 0.0, double confiance = 0.0);
/// Before any adjustment: points with known places and what joins them.
figurePlane figureDe(const reseau& r);

/// Whether X and Y of a point are to be shown: adjusted, or given.
bool estPlace(const pointCompense& p);

/// The picture as an SVG element, north up, of that width in pixels, for a page in Windows-1252; empty for nothing.
std::string svgDe(const figurePlane& figure, int largeur);
