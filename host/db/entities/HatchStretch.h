#pragma once

#include "db/entities/HatchEdges.h"
#include "db/entities/OcsTransform.h"

/// What the outlines of a hatch ask for when a transformation stretches them: circles become ellipses.

/// Arcs, and outlines that are polylines with bulges, as elliptic edges of the same shape.
void roundEdgesToEllipses(std::vector<AcDbHatchTag>& tags);

/// Takes an elliptic edge through any transformation of its plane.
void stretchEllipse(std::vector<AcDbHatchTag>& tags, const HatchEdge& edge, const OcsTransform& moved);
