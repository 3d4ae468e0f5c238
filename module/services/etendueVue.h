#pragma once

/// A rectangle of the drawing, in drawing units.
struct etendueVue {
    double xMin = 0.0;
    double yMin = 0.0;
    double xMax = 0.0;
    double yMax = 0.0;
};

/// The extent of a view of that centre on a viewport of that many pixels: the smaller pixel dimension shows `taille`,
/// the larger one as much more as it has more pixels.
etendueVue etendueDeVue(double xCentre, double yCentre, double taille, double pixelsLargeur, double pixelsHauteur);

/// The extent of the host's current view, from VIEWCTR, VIEWSIZE and SCREENSIZE.
/// @return false, `etendue` untouched, when the host does not tell one of them.
bool lireEtendueVue(etendueVue& etendue);

/// Shows the rectangle in the host's current view, with a margin; a single place is shown with some ground around it.
/// @return false when the host has no view to change.
bool montrerEtendue(const etendueVue& etendue);
