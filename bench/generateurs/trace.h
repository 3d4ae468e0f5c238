#pragma once

#include <vector>

/// A place in the plane, metres.
struct lieu {
    double x, y;

    lieu operator+(const lieu& v) const { return {x + v.x, y + v.y}; }
    lieu operator-(const lieu& v) const { return {x - v.x, y - v.y}; }
    lieu operator*(double k) const { return {x * k, y * k}; }
};

double longueur(const lieu& v);
lieu direction(const lieu& de, const lieu& vers); ///< unit vector
lieu aGauche(const lieu& v);                      ///< turned a quarter counter-clockwise

/// A vertex of a lightweight polyline: `fleche` is its bulge, tan(angle/4) of the arc to the next, counter-clockwise.
struct sommetTrace {
    lieu ou;
    double fleche;
};

/// The line at `ecart` metres to the left of an axis (right when negative), corners rounded by arcs: an inner arc is
/// shorter than `rayon`, an outer one longer, by `ecart`. The axis has straight sides long enough for its arcs.
std::vector<sommetTrace> parallele(const std::vector<lieu>& axe, double rayon, double ecart);
