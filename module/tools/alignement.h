#pragma once

#include <span>
#include <string>
#include <variant>
#include <vector>

#include "geometrie/axe.h"

/// An alignment by the polygon of its tangents: a curve at each corner.

struct sommetAlignement {
    point2 place;
    double rayon = 0.0;                ///< of the arc at this corner; 0 for none, and at both ends
    double entree = 0.0, sortie = 0.0; ///< lengths of the clothoids before and after the arc; 0 for none
};

/// Length of the clothoid of parameter A that ends on a radius: L = A² / R.
inline double longueurClothoide(double A, double rayon)
{
    return rayon > 0.0 ? A * A / rayon : 0.0;
}

/// Straights, clothoids and arcs in their order.
/// @return what cannot be, in French, with the number of the corner (from 1): fewer than two corners, two at one place,
///         a turn back, clothoids that turn more than the corner does, curves that do not fit between their corners.
std::variant<axe, std::wstring> tracerAlignement(std::span<const sommetAlignement> sommets);

/// The other way round: the corners of a line, the tangents of its arcs and clothoids prolonged. An arc that turns by
/// more than 180 gr has several corners of its radius.
/// @return why there are none, in French: a curve that is no arc between two clothoids, or that turns by half a turn
///         with them.
std::variant<std::vector<sommetAlignement>, std::wstring> sommetsDeLAxe(const axe& ligne);
