#include "gi/ObjectSnap.h"

#include <algorithm>

#include "db/entities/PieceIntersection.h"
#include "ge/Angles.h"
#include "gi/ClippedSink.h"
#include "gi/PathFlattening.h"
#include "gi/SceneContents.h"
#include "gi/ViewClip.h"

namespace {

constexpr std::size_t mostPieces = 400; // near the cursor, tried for intersections
constexpr std::size_t mostCandidates = 20000;

using Ring = std::vector<AcGePoint3d>;

/// Finds snap points among what a walk shows near the cursor.
class SnapSearch : public SceneWalk {
public:
    SnapSearch(SceneContents& contents, const SceneView& view, const AcGePoint2d& cursor, double aperture,
               unsigned kinds, const AcGePoint3d* from) :
        SceneWalk(contents.tables(), contents.blocks(), view),
        m_cursor(cursor),
        m_aperture(aperture),
        m_kinds(kinds),
        m_from(from)
    {
    }

    void setEntity(AcDbObjectId entity) { m_entity = entity; }
    void meetPieces();
    std::optional<SnapPoint> best() const { return m_best; }

protected:
    void show(const Path& path, const Placement& place, const Pen&) override;
    void show(const WidePath& path, const Placement& place, const Pen& pen) override { show(path.path, place, pen); }
    void show(const Area& area, const Placement& place, const Pen& pen) override
    {
        for (const Path& ring : area.rings)
            if (area.hasCorners)
                show(ring, place, pen);
    }
    void show(const Pattern&, const Placement&, const Pen&) override {}
    void show(const PointMark& mark, const Placement& place, const Pen&) override
    {
        offer(SnapKind::node, place(mark.position));
    }
    void show(const Label&, const Placement&, const Pen&) override {}
    void show(const Anchor& anchor, const Placement& place) override
    {
        offer(SnapKind::insertion, place(anchor.point));
    }
    void shrunk(const AcGePoint3d&, const Pen&) override {}
    void beginClip(Ring ring) override { m_clips.push_back(std::move(ring)); }
    void endClip() override { m_clips.pop_back(); }

private:
    bool wants(SnapKind kind) const { return (m_kinds & static_cast<unsigned>(kind)) != 0; }
    double away(const AcGePoint3d& p) const { return std::hypot(p.x - m_cursor.x, p.y - m_cursor.y); }
    void offer(SnapKind kind, const AcGePoint3d& point) { offer(kind, point, away(point), 0); }
    void offer(SnapKind kind, const AcGePoint3d& point, double distance, int rank);

    void showSegment(const AcGePoint3d& from, const AcGePoint3d& to, bool isWhole);
    void showArc(const PathArc& arc);
    AcGePoint3d nearestOf(const PathArc& arc, double about, double step) const;
    void addPiece(const AcGePoint3d& from, const AcGePoint3d& to, const PathArc* arc);

    AcGePoint2d m_cursor;
    double m_aperture;
    unsigned m_kinds;
    const AcGePoint3d* m_from;
    AcDbObjectId m_entity;
    struct Near {
        CurvePiece piece;
        AcDbObjectId entity;
        std::vector<Ring> clips;
    };
    std::vector<Near> m_pieces;
    std::vector<Ring> m_clips; // what lies out of one of them does not show
    std::optional<SnapPoint> m_best;
    double m_bestDistance = 0.0;
    int m_bestRank = 0;
};

/// A lower rank comes first; among equals the nearer one; among those the one offered first.
void SnapSearch::offer(SnapKind kind, const AcGePoint3d& point, double distance, int rank)
{
    constexpr double same = 1e-9;
    if (!wants(kind) || !(distance <= m_aperture) || !std::isfinite(point.x + point.y + point.z))
        return;
    if (m_best && (rank > m_bestRank || (rank == m_bestRank && distance >= m_bestDistance - same)))
        return;
    if (!std::ranges::all_of(m_clips, [&](const Ring& ring) { return isWithin(ring, point); }))
        return;
    m_best = SnapPoint{kind, point, m_entity};
    m_bestDistance = distance;
    m_bestRank = rank;
}

AcGePoint3d middleOf(const AcGePoint3d& a, const AcGePoint3d& b)
{
    return a + (b - a) * 0.5;
}

void SnapSearch::show(const Path& path, const Placement& place, const Pen&)
{
    const std::size_t last = path.points.size() - 1;
    const bool isRound = last == 1 && path.isClosed() && !path.arcs.empty(); // a whole circle or ellipse
    for (std::size_t i = 0; i <= last && !isRound; ++i)
        if (!path.smooth || ((i == 0 || i == last) && !path.isClosed()))
            offer(SnapKind::end, place(path.points[i]));
    for (std::size_t i = 0; i < last; ++i) {
        const PathArc* arc = path.arcOf(i);
        if (!arc) {
            showSegment(place(path.points[i]), place(path.points[i + 1]), !path.smooth);
            continue;
        }
        const PathArc placed{arc->segment, place(arc->center), place(arc->toStart), place(arc->across), arc->turn};
        if (!isRound)
            offer(SnapKind::middle, placed.at(placed.turn / 2.0));
        showArc(placed);
    }
}

void SnapSearch::showSegment(const AcGePoint3d& from, const AcGePoint3d& to, bool isWhole)
{
    if (isWhole)
        offer(SnapKind::middle, middleOf(from, to));
    double start = 0.0, end = 1.0;
    if (!clipSegment(from, to, viewBox(), start, end))
        return;
    addPiece(from, to, nullptr);
    const AcGeVector3d way = to - from;
    const double length = way.x * way.x + way.y * way.y;
    const double share = length > 0.0 ? ((m_cursor.x - from.x) * way.x + (m_cursor.y - from.y) * way.y) / length : 0.0;
    const AcGePoint3d nearest = between(from, to, share);
    const double distance = away(nearest);
    offer(SnapKind::nearest, nearest, distance, 3);
    if (m_from && length > 0.0 && distance <= m_aperture) {
        const double foot = ((m_from->x - from.x) * way.x + (m_from->y - from.y) * way.y) / length;
        offer(SnapKind::perpendicular, from + way * foot, distance, 2);
    }
}

void SnapSearch::showArc(const PathArc& arc)
{
    offer(SnapKind::center, arc.center);
    // Quadrants are where a circle seen from above runs along an axis: a quarter turn apart from there on.
    const double first = std::atan2(arc.across.x, arc.toStart.x);
    for (const double from : {first, std::atan2(arc.across.y, arc.toStart.y)})
        for (double t = from - wholeTurn; t <= arc.turn; t += wholeTurn / 2.0)
            if (t >= 0.0)
                offer(SnapKind::quadrant, arc.at(t));

    // The curve itself, near the cursor: by chords, finely, then where it matters by the arc itself.
    Path path;
    path.points = {arc.at(0.0), arc.at(arc.turn)};
    path.arcs = {arc};
    path.arcs.front().segment = 0;
    std::vector<AcGePoint3d> chords;
    if (!flatten(path, Placement(), view().pixel / 8.0, chords))
        return;
    const double step = arc.turn / static_cast<double>(chords.size() - 1);
    const bool isCircle = std::fabs(arc.toStart.length() - arc.across.length()) <= 1e-9 * arc.toStart.length() &&
                          arc.toStart.z == 0.0 && arc.across.z == 0.0;
    bool met = false;
    for (std::size_t i = 0; i + 1 < chords.size(); ++i) {
        double start = 0.0, end = 1.0;
        if (!clipSegment(chords[i], chords[i + 1], viewBox(), start, end))
            continue;
        if (!isCircle)
            addPiece(chords[i], chords[i + 1], nullptr);
        const AcGeVector3d way = chords[i + 1] - chords[i];
        const double length = way.x * way.x + way.y * way.y;
        const double share = std::clamp(
            length > 0.0 ? ((m_cursor.x - chords[i].x) * way.x + (m_cursor.y - chords[i].y) * way.y) / length : 0.0,
            0.0, 1.0);
        const AcGePoint3d nearest = nearestOf(arc, step * (static_cast<double>(i) + share), step);
        const double distance = away(nearest);
        offer(SnapKind::nearest, nearest, distance, 3);
        offer(SnapKind::center, arc.center, distance, 1);
        met = met || distance <= m_aperture;
    }
    if (!met)
        return;
    if (isCircle)
        addPiece(arc.at(0.0), arc.at(arc.turn), &arc);
    if (m_from && isCircle) {
        const AcGeVector3d out(m_from->x - arc.center.x, m_from->y - arc.center.y, 0.0);
        const double turned = std::atan2(out.dotProduct(arc.across), out.dotProduct(arc.toStart));
        for (double t = turned; t <= arc.turn; t += wholeTurn / 2.0)
            if (t >= 0.0) {
                const AcGePoint3d foot = arc.at(t);
                offer(SnapKind::perpendicular, foot, std::min(away(foot), m_aperture), 2);
            }
    }
}

/// Of a stretch of an arc, the point nearest to the cursor: the stretch is cut to a third as often as it takes.
AcGePoint3d SnapSearch::nearestOf(const PathArc& arc, double about, double step) const
{
    double low = std::max(about - step, 0.0), high = std::min(about + step, arc.turn);
    for (int i = 0; i < 60; ++i) {
        const double third = (high - low) / 3.0;
        const bool first = away(arc.at(low + third)) < away(arc.at(high - third));
        (first ? high : low) = first ? high - third : low + third;
    }
    return arc.at((low + high) / 2.0);
}

void SnapSearch::addPiece(const AcGePoint3d& from, const AcGePoint3d& to, const PathArc* arc)
{
    if (!wants(SnapKind::intersection) || m_pieces.size() >= mostPieces)
        return;
    CurvePiece piece;
    piece.start = AcGePoint2d(from.x, from.y);
    piece.end = AcGePoint2d(to.x, to.y);
    piece.startDepth = from.z;
    piece.endDepth = to.z;
    if (arc) {
        piece.isArc = true;
        piece.center = AcGePoint2d(arc->center.x, arc->center.y);
        piece.radius = arc->toStart.length();
        piece.startAngle = std::atan2(arc->toStart.y, arc->toStart.x);
        const double sense = arc->toStart.x * arc->across.y - arc->toStart.y * arc->across.x;
        piece.turn = sense < 0.0 ? -arc->turn : arc->turn;
    }
    m_pieces.push_back({piece, m_entity, m_clips});
}

/// Where the pieces near the cursor meet, seen from above; the altitude is that of the piece met first.
void SnapSearch::meetPieces()
{
    for (std::size_t i = 0; i < m_pieces.size(); ++i)
        for (std::size_t k = i + 1; k < m_pieces.size(); ++k) {
            const CurvePiece &first = m_pieces[i].piece, &second = m_pieces[k].piece;
            m_clips = m_pieces[i].clips;
            m_clips.insert(m_clips.end(), m_pieces[k].clips.begin(), m_pieces[k].clips.end());
            const PieceMeetings meetings = meetingsOf(first, second, 1e-9);
            for (int m = 0; m < meetings.count; ++m) {
                const double t = meetings.at[m].onFirst;
                const AcGePoint2d at = first.at(t);
                setEntity(m_pieces[i].entity);
                offer(SnapKind::intersection, AcGePoint3d(at.x, at.y, first.depthAt(t)));
            }
        }
}

} // namespace

std::optional<SnapPoint> snapAt(Scene& scene, const AcGePoint2d& cursor, double aperture, unsigned kinds,
                                const AcGePoint3d* from)
{
    SceneView view;
    view.center = cursor;
    view.width = view.height = 2.0 * aperture;
    view.pixel = aperture / 8.0;
    view.simplified = view.dashes = false;
    SceneContents& contents = scene.contents();
    SnapSearch search(contents, view, cursor, aperture, kinds, from);
    const std::vector<std::uint32_t> found = contents.touching(view.box());
    std::size_t tried = 0;
    for (auto at = found.rbegin(); at != found.rend() && tried < mostCandidates; ++at, ++tried) {
        search.setEntity(contents.entityAt(*at));
        contents.walkEntity(contents.entityAt(*at), search);
    }
    search.meetPieces();
    return search.best();
}
