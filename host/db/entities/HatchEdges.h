#pragma once

#include <cmath>
#include <optional>

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

/// An arc, or a stretch of an ellipse: center + major·cos t + minor·sin t, for t from `from` over `turn`, which is
/// negative clockwise.
struct HatchArc {
    AcGePoint3d center;
    AcGeVector3d major, minor;
    double from = 0.0, turn = 0.0;

    AcGePoint3d at(double t) const { return center + major * std::cos(t) + minor * std::sin(t); }
};

std::vector<HatchOutline> hatchOutlines(const std::vector<AcDbHatchTag>& tags);

/// First number under a code in a run of groups.
double hatchNumber(const std::vector<AcDbHatchTag>& tags, std::size_t first, std::size_t last, int code,
                   double otherwise = 0.0);

/// Of an edge that is an arc or elliptic; nothing when its groups are missing.
std::optional<HatchArc> hatchArc(const std::vector<AcDbHatchTag>& tags, const HatchEdge& edge);

/// An outline as a closed polyline with bulges; elliptic and spline edges as short chords.
std::vector<VertexPath::Vertex> hatchPolyline(const std::vector<AcDbHatchTag>& tags, const HatchOutline& outline);
