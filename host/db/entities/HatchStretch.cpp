#include "db/entities/HatchStretch.h"

#include <algorithm>
#include <cmath>

#include "ge/Angles.h"

namespace {

using Tags = std::vector<AcDbHatchTag>;

constexpr Adesk::Int32 bulgedOutline = 2;
enum EdgeCode { lineEdge = 1, ellipseEdge = 3 };

void add(Tags& tags, int code, double number)
{
    AcDbHatchTag& tag = tags.emplace_back();
    tag.code = static_cast<Adesk::Int16>(code);
    tag.number = number;
}

void addPoint(Tags& tags, int code, double x, double y)
{
    add(tags, code, x);
    add(tags, code + 10, y);
}

/// The groups of an elliptic edge, but for the one that tells its kind. Clockwise ones have their angles negated.
void addEllipse(Tags& tags, const HatchArc& arc)
{
    const bool clockwise = arc.turn < 0.0;
    const double from = clockwise ? -arc.from : arc.from;
    const double start = from - wholeTurn * std::floor(from / wholeTurn);
    addPoint(tags, 10, arc.center.x, arc.center.y);
    addPoint(tags, 11, arc.major.x, arc.major.y);
    add(tags, 40, arc.minor.length() / arc.major.length());
    add(tags, 50, start / oneDegree);
    add(tags, 51, (start + std::fabs(arc.turn)) / oneDegree);
    add(tags, 73, clockwise ? 0.0 : 1.0);
}

/// The arc from one vertex to the next, its first diameter towards its start.
HatchArc arcOfBulge(const AcGePoint3d& start, const AcGePoint3d& end, double bulge)
{
    const AcGeVector3d chord = end - start;
    HatchArc arc;
    arc.center = start + chord * 0.5 + AcGeVector3d(-chord.y, chord.x, 0.0) * ((1.0 - bulge * bulge) / (4.0 * bulge));
    arc.major = start - arc.center;
    arc.minor = AcGeVector3d(-arc.major.y, arc.major.x, 0.0);
    arc.turn = 4.0 * std::atan(bulge);
    return arc;
}

void addEdges(Tags& tags, const std::vector<VertexPath::Vertex>& ring)
{
    add(tags, 93, static_cast<double>(ring.size()));
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const AcGePoint3d &start = ring[i].point, &end = ring[(i + 1) % ring.size()].point;
        const bool straight = ring[i].bulge == 0.0 || start == end;
        add(tags, 72, straight ? lineEdge : ellipseEdge);
        if (!straight) {
            addEllipse(tags, arcOfBulge(start, end, ring[i].bulge));
            continue;
        }
        addPoint(tags, 10, start.x, start.y);
        addPoint(tags, 11, end.x, end.y);
    }
}

/// The groups of an edge that are not its own: those of the outline, behind its last edge.
void addOthers(Tags& tags, const Tags& from, const HatchEdge& edge, std::initializer_list<int> own)
{
    for (std::size_t i = edge.first; i < edge.last; ++i)
        if (std::ranges::find(own, from[i].code) == own.end())
            tags.push_back(from[i]);
}

/// Whether it was written anew; an edge that is not round is left to be copied.
bool addRounded(Tags& tags, const Tags& from, const HatchOutline& outline, const HatchEdge& edge)
{
    if (edge.kind == HatchEdgeKind::arc) {
        const auto arc = hatchArc(from, edge);
        if (!arc || !(arc->major.length() > 0.0))
            return false;
        tags.back().number = ellipseEdge; // the kind stands before the edge
        addEllipse(tags, *arc);
        addOthers(tags, from, edge, {10, 20, 40, 50, 51, 73});
        return true;
    }
    if (edge.kind != HatchEdgeKind::polyline)
        return false;
    const auto ring = hatchPolyline(from, outline);
    if (std::ranges::all_of(ring, [](const VertexPath::Vertex& v) { return v.bulge == 0.0; }))
        return false;
    tags.back().number -= bulgedOutline; // the type of the outline too
    addEdges(tags, ring);
    addOthers(tags, from, edge, {72, 73, 93, 10, 20, 42});
    return true;
}

} // namespace

void roundEdgesToEllipses(Tags& tags)
{
    Tags made;
    std::size_t copied = 0;
    for (const HatchOutline& outline : hatchOutlines(tags))
        for (const HatchEdge& edge : outline.edges) {
            made.insert(made.end(), tags.begin() + static_cast<std::ptrdiff_t>(copied),
                        tags.begin() + static_cast<std::ptrdiff_t>(edge.first));
            copied = addRounded(made, tags, outline, edge) ? edge.last : edge.first;
        }
    made.insert(made.end(), tags.begin() + static_cast<std::ptrdiff_t>(copied), tags.end());
    tags = std::move(made);
}

void stretchEllipse(Tags& tags, const HatchEdge& edge, const OcsTransform& moved)
{
    const auto old = hatchArc(tags, edge);
    if (!old || !(old->major.length() > 0.0))
        return;
    // The axes go to two conjugate half-diameters; the new axes lie `turned` further along the ellipse.
    const AcGeVector3d u = moved.vector(old->major), v = moved.vector(old->minor);
    const double turned = std::atan2(2.0 * u.dotProduct(v), u.lengthSqrd() - v.lengthSqrd()) / 2.0;
    HatchArc arc;
    arc.center = moved.point(old->center);
    arc.major = u * std::cos(turned) + v * std::sin(turned);
    arc.minor = v * std::cos(turned) - u * std::sin(turned);
    arc.from = old->from - turned;
    arc.turn = old->turn;
    if (arc.major.x * arc.minor.y - arc.major.y * arc.minor.x < 0.0) { // files have the minor axis to the left
        arc.from = -arc.from;
        arc.turn = -arc.turn;
    }
    Tags written;
    addEllipse(written, arc);
    for (std::size_t i = edge.first; i < edge.last; ++i)
        for (const AcDbHatchTag& tag : written)
            if (tag.code == tags[i].code)
                tags[i].number = tag.number;
}
