#include "db/entities/CurvePieces.h"

#include <cmath>

#include "db/entities/OcsTransform.h"
#include "db/entities/VertexPath.h"
#include "ge/Angles.h"

#include "dbelipse.h"
#include "dbents.h"
#include "dbspline.h"

namespace {

constexpr double parallelTolerance = 1e-9;
constexpr int chordsOfTurn = 720;
constexpr int chordsOfSpan = 16;

} // namespace

AcGePoint2d CurvePiece::at(double t) const
{
    if (t == 0.0)
        return start;
    if (t == 1.0)
        return end;
    if (!isArc)
        return start + chord() * t;
    const double angle = startAngle + t * turn;
    return center + AcGeVector2d(std::cos(angle), std::sin(angle)) * radius;
}

void CurvePieces::addLine(const AcGePoint3d& start, const AcGePoint3d& end)
{
    SpacePiece piece;
    piece.start = start;
    piece.end = end;
    m_pieces.push_back(piece);
}

void CurvePieces::addArc(const AcGePoint3d& center, const AcGeVector3d& toStart, const AcGeVector3d& across,
                         double turn)
{
    SpacePiece piece;
    piece.isArc = true;
    piece.center = center;
    piece.toStart = toStart;
    piece.across = across;
    piece.turn = turn;
    piece.start = center + toStart;
    piece.end = center + toStart * std::cos(turn) + across * std::sin(turn);
    m_pieces.push_back(piece);
}

void CurvePieces::addPath(const VertexPath& path)
{
    m_closed = path.isClosed();
    const AcGeVector3d& normal = path.normal();
    m_pieces.reserve(path.segmentCount());
    for (std::size_t i = 0; i < path.segmentCount(); ++i) {
        const PathSegment segment = path.segment(i);
        const AcGePoint3d start = ocsToWorld(segment.start, normal), end = ocsToWorld(segment.end, normal);
        if (!segment.isArc()) {
            addLine(start, end);
            continue;
        }
        const AcGePoint3d center = ocsToWorld(segment.center(), normal);
        const double radius = segment.radius();
        const AcGeVector3d heading =
            ocsToWorld(AcGePoint3d() + segment.derivative(0.0), normal) - ocsToWorld(AcGePoint3d(), normal);
        addArc(center, start - center, heading.normal() * radius, std::fabs(segment.turn()));
        m_pieces.back().end = end; // exact, so that pieces join
    }
}

void CurvePieces::addSampled(const AcDbCurve& curve, int count)
{
    double from = 0.0, to = 0.0;
    AcGePoint3d previous, next;
    if (curve.getStartParam(from) != Acad::eOk || curve.getEndParam(to) != Acad::eOk)
        return;
    curve.getPointAtParam(from, previous);
    for (int i = 1; i <= count; ++i, previous = next) {
        curve.getPointAtParam(i == count ? to : from + (to - from) * i / count, next);
        addLine(previous, next);
    }
    m_closed = curve.isClosed() != Adesk::kFalse;
}

bool CurvePieces::cut(const AcDbCurve& curve)
{
    double from = 0.0, to = 0.0;
    curve.getStartParam(from);
    curve.getEndParam(to);
    if (const auto* line = AcDbLine::cast(&curve))
        addLine(line->startPoint(), line->endPoint());
    else if (const auto* polyline = dynamic_cast<const AcDbPathCurve*>(&curve)) {
        const VertexPath path = polyline->path();
        addPath(path);
        m_normal = path.normal();
        m_hasPlane = !curve.isKindOf(AcDb3dPolyline::desc());
    } else if (curve.isKindOf(AcDbCircle::desc()) || curve.isKindOf(AcDbArc::desc())) {
        const auto& round = static_cast<const AcDbCircularCurve&>(curve);
        AcGeVector3d heading;
        AcGePoint3d start;
        round.getFirstDeriv(from, heading); // by the angle: as long as the radius
        round.getPointAtParam(from, start);
        addArc(round.center(), start - round.center(), heading, to - from);
        m_normal = round.normal();
        m_hasPlane = true;
        m_closed = round.isClosed() != Adesk::kFalse;
    } else if (const auto* ellipse = AcDbEllipse::cast(&curve)) {
        const AcGeVector3d major = ellipse->majorAxis(), minor = ellipse->minorAxis();
        if (ellipse->radiusRatio() == 1.0)
            addArc(ellipse->center(), major * std::cos(from) + minor * std::sin(from),
                   minor * std::cos(from) - major * std::sin(from), to - from);
        else
            addSampled(curve, std::max(8, static_cast<int>(chordsOfTurn * (to - from) / wholeTurn)));
        m_normal = ellipse->normal();
        m_hasPlane = true;
        m_closed = ellipse->isClosed() != Adesk::kFalse;
    } else if (const auto* spline = AcDbSpline::cast(&curve))
        addSampled(curve, chordsOfSpan * std::max(spline->numControlPoints(), spline->numFitPoints()));
    return !m_pieces.empty();
}

bool CurvePieces::plane(AcGeVector3d& normal) const
{
    if (m_hasPlane)
        normal = m_normal;
    return m_hasPlane;
}

std::vector<CurvePiece> CurvePieces::seenOn(const AcGeMatrix3d& toPlane, bool extended) const
{
    std::vector<CurvePiece> seen;
    seen.reserve(m_pieces.size());
    const auto add = [&](const AcGePoint3d& start, const AcGePoint3d& end) -> CurvePiece& {
        const AcGePoint3d a = toPlane * start, b = toPlane * end;
        CurvePiece& piece = seen.emplace_back();
        piece.start = AcGePoint2d(a.x, a.y);
        piece.end = AcGePoint2d(b.x, b.y);
        piece.startInSpace = start;
        piece.endInSpace = end;
        piece.startDepth = a.z;
        piece.endDepth = b.z;
        return piece;
    };
    for (const SpacePiece& piece : m_pieces) {
        if (!piece.isArc) {
            add(piece.start, piece.end);
            continue;
        }
        const AcGeVector3d u = toPlane * piece.toStart, v = toPlane * piece.across;
        if (std::fabs(u.z) + std::fabs(v.z) <= parallelTolerance * (u.length() + v.length())) {
            CurvePiece& arc = add(piece.start, piece.end);
            const AcGePoint3d center = toPlane * piece.center;
            arc.isArc = true;
            arc.center = AcGePoint2d(center.x, center.y);
            arc.radius = std::hypot(u.x, u.y);
            arc.startAngle = std::atan2(u.y, u.x);
            arc.turn = u.x * v.y - u.y * v.x < 0.0 ? -piece.turn : piece.turn;
            continue;
        }
        const int count = std::max(8, static_cast<int>(chordsOfTurn * piece.turn / wholeTurn));
        AcGePoint3d previous = piece.start;
        for (int i = 1; i <= count; ++i) {
            const double angle = piece.turn * i / count;
            const AcGePoint3d next =
                i == count ? piece.end
                           : piece.center + piece.toStart * std::cos(angle) + piece.across * std::sin(angle);
            add(previous, next);
            previous = next;
        }
    }
    if (extended && !m_closed && !seen.empty()) {
        seen.front().freeStart = true;
        seen.back().freeEnd = true;
    }
    return seen;
}
