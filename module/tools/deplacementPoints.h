#pragma once

#include <span>
#include <vector>

#include "geometrie/axe.h"
#include "tools/pointNomme.h"

/// Where tools move points to. Each gives one place for each point, in their order; `inconnu` altitudes stay so.

std::vector<point3> deportesDuVecteur(std::span<const pointNomme> points, point3 vecteur);
/// Square to an axis that is not empty: each offset grows by `distance`, to the right.
std::vector<point3> deportesDeLAxe(std::span<const pointNomme> points, const axe& ligne, double distance);
/// Onto it, at their own altitudes.
std::vector<point3> deportesSurLAxe(std::span<const pointNomme> points, const axe& ligne);

/// Altitudes that tools give: one for each point, `inconnu` where there is none to give.

std::vector<double> altitudesDecalees(std::span<const pointNomme> points, double decalage);
/// Along the line through two places of known altitude, at the foot of each point; beyond them too.
/// @return nothing when the two are one place.
std::vector<double> altitudesEnPente(std::span<const pointNomme> points, point3 de, point3 a);
std::vector<double> altitudesDeLAxe(std::span<const pointNomme> points, const axe& ligne);
/// Of the nearest place of known altitude at most `distance` away.
std::vector<double> altitudesVoisines(std::span<const pointNomme> points, std::span<const point3> cotes,
                                      double distance);
