#pragma once

#include <vector>

#include "sol/maillageTerrain.h"

/// A line of one altitude. The ground rises on its left. A closed one does not repeat its first point.
struct courbeNiveau {
    double altitude = 0.0;
    bool fermee = false;
    std::vector<lieuSol> points;
};

struct demandeCourbes {
    double intervalle = 1.0; ///< between two lines; above 0
    bool lisser = true;
};

/// The lines at the multiples of the interval, lowest first. A place exactly at the altitude of a line counts as above
/// it, so that flat ground gives its rim alone; a crest at that altitude gives one line, which is not rounded.
/// Smoothed lines are rounded at their corners, save on break lines, and only as far as the ground between the corner
/// and the rounding stays within half an interval of the line's altitude: so two lines never cross, nor does one leave
/// the model. Time: the points of the lines.
std::vector<courbeNiveau> courbesDeNiveau(const maillageTerrain& sol, const demandeCourbes& demande);

/// How many lines' steps the ground would make: what is to be refused before it is made.
double nombreAltitudes(const maillageTerrain& sol, double intervalle);
