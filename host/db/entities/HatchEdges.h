#pragma once

#include "db/entities/VertexPath.h"

#include "dbhatch.h"

/// The outlines of a hatch as they stand among its groups: runs of groups in which every code has one meaning.
/// The counts among the groups are not relied on.

enum class HatchEdgeKind : unsigned char { polyline, line, arc, ellipse, spline };

/// Groups [first, last) of one edge, or of a whole outline that is a polyline.
struct HatchEdge {
    HatchEdgeKind kind;
    std::size_t first, last;
};

struct HatchOutline {
    Adesk::Int32 type = 0;
    std::vector<HatchEdge> edges;
};

std::vector<HatchOutline> hatchOutlines(const std::vector<AcDbHatchTag>& tags);

/// First number under a code in a run of groups.
double hatchNumber(const std::vector<AcDbHatchTag>& tags, std::size_t first, std::size_t last, int code,
                   double otherwise = 0.0);

/// An outline as a closed polyline with bulges; elliptic and spline edges as short chords.
std::vector<VertexPath::Vertex> hatchPolyline(const std::vector<AcDbHatchTag>& tags, const HatchOutline& outline);
