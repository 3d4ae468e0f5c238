#include "db/entities/HatchEdges.h"

#include <algorithm>
#include <cmath>

#include "ge/Angles.h"

#include "dbspline.h"

namespace {

using Tags = std::vector<AcDbHatchTag>;
using Vertices = std::vector<VertexPath::Vertex>;

constexpr Adesk::Int32 polylineType = 2;
constexpr int chordsOfTurn = 72;
constexpr int chordsOfSpan = 8;

/// Points given under two codes, in order.
Vertices points(const Tags& tags, const HatchEdge& edge, int xCode)
{
    Vertices found;
    for (std::size_t i = edge.first; i < edge.last; ++i) {
        if (tags[i].code == xCode)
            found.push_back({AcGePoint3d(tags[i].number, 0.0, 0.0), 0.0});
        else if (tags[i].code == xCode + 10 && !found.empty())
            found.back().point.y = tags[i].number;
        else if (tags[i].code == 42 && edge.kind == HatchEdgeKind::polyline && !found.empty())
            found.back().bulge = tags[i].number;
    }
    return found;
}

/// Start and sweep of an arc or ellipse, in its sense of travel. Clockwise ones have their angles negated in the file.
void sweep(const Tags& tags, const HatchEdge& edge, double& from, double& turn)
{
    const bool clockwise = hatchNumber(tags, edge.first, edge.last, 73, 1.0) == 0.0;
    const double start = hatchNumber(tags, edge.first, edge.last, 50) * oneDegree;
    const double end = hatchNumber(tags, edge.first, edge.last, 51, 360.0) * oneDegree;
    double turned = end - start;
    turned -= wholeTurn * std::floor(turned / wholeTurn);
    if (turned < 1e-9)
        turned = wholeTurn;
    from = clockwise ? -start : start;
    turn = clockwise ? -turned : turned;
}

/// Two halves: a bulge cannot turn all the way round.
void addArc(const HatchArc& arc, Vertices& outline)
{
    for (const double share : {0.0, 0.5})
        outline.push_back({arc.at(arc.from + share * arc.turn), std::tan(arc.turn / 8.0)});
}

void addEllipse(const HatchArc& arc, Vertices& outline)
{
    const int count = std::max(2, static_cast<int>(chordsOfTurn * std::fabs(arc.turn) / wholeTurn));
    for (int i = 0; i < count; ++i)
        outline.push_back({arc.at(arc.from + arc.turn * i / count), 0.0});
}

void addSpline(const Tags& tags, const HatchEdge& edge, Vertices& outline)
{
    AcGePoint3dArray controls;
    AcGeDoubleArray knots, weights;
    for (const VertexPath::Vertex& vertex : points(tags, edge, 10))
        controls.append(vertex.point);
    for (std::size_t i = edge.first; i < edge.last; ++i) {
        if (tags[i].code == 40)
            knots.append(tags[i].number);
        if (tags[i].code == 42)
            weights.append(tags[i].number);
    }
    const auto degrees = static_cast<int>(std::clamp(hatchNumber(tags, edge.first, edge.last, 94, 3.0), 0.0, 100.0));
    const AcDbSpline spline(degrees, !weights.isEmpty(), Adesk::kFalse, Adesk::kFalse, controls, knots, weights);
    double from = 0.0, to = 0.0;
    if (spline.getStartParam(from) != Acad::eOk || spline.getEndParam(to) != Acad::eOk) {
        for (const AcGePoint3d& control : controls)
            outline.push_back({control, 0.0});
        return;
    }
    const int count = chordsOfSpan * controls.length();
    for (int i = 0; i < count; ++i) {
        AcGePoint3d point;
        if (spline.getPointAtParam(from + (to - from) * i / count, point) == Acad::eOk)
            outline.push_back({point, 0.0});
    }
}

} // namespace

std::optional<HatchArc> hatchArc(const Tags& tags, const HatchEdge& edge)
{
    const Vertices center = points(tags, edge, 10), axis = points(tags, edge, 11);
    const bool elliptic = edge.kind == HatchEdgeKind::ellipse;
    if (center.empty() || (elliptic && axis.empty()))
        return std::nullopt;
    const double number = hatchNumber(tags, edge.first, edge.last, 40, elliptic ? 1.0 : 0.0);
    HatchArc arc;
    arc.center = center[0].point;
    arc.major = elliptic ? axis[0].point.asVector() : AcGeVector3d(number, 0.0, 0.0);
    arc.minor = AcGeVector3d(-arc.major.y, arc.major.x, 0.0) * (elliptic ? number : 1.0);
    sweep(tags, edge, arc.from, arc.turn);
    return arc;
}

double hatchNumber(const Tags& tags, std::size_t first, std::size_t last, int code, double otherwise)
{
    for (std::size_t i = first; i < last; ++i)
        if (tags[i].code == code)
            return tags[i].number;
    return otherwise;
}

std::vector<HatchOutline> hatchOutlines(const Tags& tags)
{
    std::vector<HatchOutline> outlines;
    for (std::size_t i = 0; i < tags.size() && (tags[i].code != 75 || outlines.empty()); ++i) {
        if (tags[i].code == 92) {
            HatchOutline& outline = outlines.emplace_back();
            outline.type = static_cast<Adesk::Int32>(tags[i].number);
            if ((outline.type & polylineType) != 0)
                outline.edges.push_back({HatchEdgeKind::polyline, i + 1, i + 1});
        } else if (tags[i].code == 72 && !outlines.empty() && (outlines.back().type & polylineType) == 0) {
            const double kind = tags[i].number;
            if (kind >= 1.0 && kind <= 4.0)
                outlines.back().edges.push_back({static_cast<HatchEdgeKind>(kind), i + 1, i + 1});
        }
        if (!outlines.empty() && !outlines.back().edges.empty())
            outlines.back().edges.back().last = i + 1;
    }
    return outlines;
}

Vertices hatchPolyline(const Tags& tags, const HatchOutline& outline)
{
    Vertices vertices;
    for (const HatchEdge& edge : outline.edges) {
        switch (edge.kind) {
        case HatchEdgeKind::polyline:
            vertices = points(tags, edge, 10);
            break;
        case HatchEdgeKind::line: {
            const Vertices start = points(tags, edge, 10); // its end is the start of the next edge
            vertices.insert(vertices.end(), start.begin(), start.end());
            break;
        }
        case HatchEdgeKind::arc:
            if (const auto arc = hatchArc(tags, edge))
                addArc(*arc, vertices);
            break;
        case HatchEdgeKind::ellipse:
            if (const auto arc = hatchArc(tags, edge))
                addEllipse(*arc, vertices);
            break;
        case HatchEdgeKind::spline:
            addSpline(tags, edge, vertices);
            break;
        }
    }
    return vertices;
}
