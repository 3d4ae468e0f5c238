#pragma once

#include <span>
#include <vector>

#include "geometrie/abscisses.h"
#include "geometrie/axe.h"
#include "reports/htmlDocument.h"
#include "tools/pointNomme.h"

/// A point and its foot on an axis.
struct pointProjete {
    pointNomme point;
    axe::projection pied;
    double abscisse = 0.0;      ///< chainage of the foot
    double denivelee = inconnu; ///< of the point above the axis; `inconnu` when either altitude is
};

/// Feet of all points on an axis that is not empty. Cost: a search in its tree for each point.
std::vector<pointProjete> projeterPoints(const axe& ligne, const abscisses& numerotation,
                                         std::span<const pointNomme> points);

/// The report of projections: where the axis was numbered from, then a line for each point.
htmlDocument rapportProjection(const axe& ligne, const abscisses& numerotation, std::span<const pointProjete> points);
