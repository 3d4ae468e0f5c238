#pragma once

#include "geometrie/axe.h"

/// How points to stake out are chosen along an axis.
struct choixAxe {
    bool suivantErreur = false; ///< by the greatest distance between curve and chord; else by step
    double valeur = 0.0;        ///< that distance, or the step; above 0
};

/// More would hardly be staked out: a step or an error typed wrong.
inline constexpr std::size_t pointsAxeAuPlus = 100000;

/// Lengths along the axis, growing. By step: every multiple of it, and the end. By error: all ends of its straights,
/// arcs and clothoids, and as many places evenly within each as keep the chords within the error. A closed axis does
/// not come back to its start.
/// @return none when there would be more than `limite`
std::vector<double> longueursAImplanter(const axe& a, const choixAxe& choix, std::size_t limite = pointsAxeAuPlus);
