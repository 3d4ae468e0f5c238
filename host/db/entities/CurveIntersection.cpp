#include "db/entities/CurveIntersection.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "db/entities/PieceIntersection.h"

#include "geplane.h"

namespace {

constexpr double farthest = std::numeric_limits<double>::infinity();
constexpr double spaceTolerance = 1e-6; // how far two curves that meet may pass each other, in drawing units

struct Box {
    double left = farthest, bottom = farthest, right = -farthest, top = -farthest;

    void add(const AcGePoint2d& p, double margin)
    {
        left = std::min(left, p.x - margin);
        right = std::max(right, p.x + margin);
        bottom = std::min(bottom, p.y - margin);
        top = std::max(top, p.y + margin);
    }
    void add(const Box& other)
    {
        left = std::min(left, other.left);
        right = std::max(right, other.right);
        bottom = std::min(bottom, other.bottom);
        top = std::max(top, other.top);
    }
    bool touches(const Box& other) const
    {
        return left <= other.right && other.left <= right && bottom <= other.top && other.bottom <= top;
    }
};

Box boxOf(const CurvePiece& piece, double tolerance)
{
    Box box;
    if (piece.isArc)
        box.add(piece.center, piece.radius + tolerance);
    else if (piece.freeStart || piece.freeEnd)
        box = {-farthest, -farthest, farthest, farthest};
    else {
        box.add(piece.start, tolerance);
        box.add(piece.end, tolerance);
    }
    return box;
}

/// Boxes of the pieces of a curve, then of ever longer runs of them: neighbours on a curve are neighbours in the plane.
class BoxTree {
public:
    BoxTree(const std::vector<CurvePiece>& pieces, double tolerance)
    {
        while (m_leaves < pieces.size())
            m_leaves *= 2;
        m_boxes.resize(2 * m_leaves);
        for (std::size_t i = 0; i < pieces.size(); ++i)
            m_boxes[m_leaves + i] = boxOf(pieces[i], tolerance);
        for (std::size_t i = m_leaves - 1; i > 0; --i) {
            m_boxes[i] = m_boxes[2 * i];
            m_boxes[i].add(m_boxes[2 * i + 1]);
        }
    }

    /// Calls `take` with the position of each piece whose box touches, in order.
    template <class Take>
    void forEach(const Box& box, const Take& take, std::size_t node = 1) const
    {
        if (!m_boxes[node].touches(box))
            return;
        if (node >= m_leaves)
            return take(node - m_leaves);
        forEach(box, take, 2 * node);
        forEach(box, take, 2 * node + 1);
    }

private:
    std::size_t m_leaves = 1;
    std::vector<Box> m_boxes; // 1 is the root, the children of n are 2n and 2n + 1
};

bool isAlong(const CurvePieces& curve, const AcGeVector3d& direction)
{
    const auto& pieces = curve.pieces();
    return pieces.size() == 1 && !pieces[0].isArc && (pieces[0].end - pieces[0].start).isParallelTo(direction);
}

/// Direction of view in which the meetings of two curves show: that of the plane of either, else any in which neither
/// line shrinks to a point.
AcGeVector3d viewOf(const CurvePieces& first, const CurvePieces& second)
{
    AcGeVector3d planes[2];
    std::vector<AcGeVector3d> views;
    if (first.plane(planes[0]))
        views.push_back(planes[0]);
    if (second.plane(planes[1]))
        views.push_back(planes[1]);
    const AcGeVector3d across = [&] {
        const auto &a = first.pieces().front(), &b = second.pieces().front();
        return (a.end - a.start).crossProduct(b.end - b.start);
    }();
    views.push_back(AcGeVector3d::kZAxis);
    if (first.pieces().size() == 1 && second.pieces().size() == 1 && views.size() == 1 && !across.isZeroLength())
        views.insert(views.begin(), across.normal());
    views.push_back(AcGeVector3d::kXAxis);
    views.push_back(AcGeVector3d::kYAxis);
    for (const AcGeVector3d& view : views)
        if (!view.isZeroLength() && !isAlong(first, view) && !isAlong(second, view))
            return view;
    return AcGeVector3d::kZAxis;
}

/// Rounding of coordinates of that size, a few times over.
double toleranceFor(const std::vector<CurvePiece>& a, const std::vector<CurvePiece>& b)
{
    double largest = 1.0;
    for (const auto* pieces : {&a, &b})
        for (const CurvePiece& piece : *pieces)
            largest = std::max({largest, std::fabs(piece.start.x), std::fabs(piece.start.y)});
    return std::max(1e-10, 1e-14 * largest);
}

/// A point of a piece in space: exact at its ends, and along an axis to which a straight one is at right angles.
AcGePoint3d inSpace(const CurvePiece& piece, double t, const AcGeMatrix3d& toWorld)
{
    if (t == 0.0 || t == 1.0)
        return t == 0.0 ? piece.startInSpace : piece.endInSpace;
    if (!piece.isArc)
        return piece.startInSpace + (piece.endInSpace - piece.startInSpace) * t;
    const AcGePoint2d at = piece.at(t);
    return toWorld * AcGePoint3d(at.x, at.y, piece.depthAt(t));
}

/// Where two pieces meet in space. What one of them holds exactly is taken from it: a grid line at x = 200 is met at
/// 200, not a rounding beside it.
AcGePoint3d meetingInSpace(const CurvePiece& own, double mine, const CurvePiece& other, double its,
                           const AcGeMatrix3d& toWorld)
{
    AcGePoint3d point = inSpace(own, mine, toWorld);
    const AcGePoint3d there = inSpace(other, its, toWorld);
    for (unsigned int axis = 0; axis < 3; ++axis)
        if (!other.isArc && other.startInSpace[axis] == other.endInSpace[axis] &&
            (own.isArc || own.startInSpace[axis] != own.endInSpace[axis]))
            point[axis] = there[axis];
    return point;
}

struct Found {
    double at;
    AcGePoint3d point;
};

} // namespace

Acad::ErrorStatus intersectCurves(const AcDbCurve& curve, const AcDbEntity* other, AcDb::Intersect type,
                                  const AcGePlane* plane, AcGePoint3dArray& points)
{
    const auto* otherCurve = AcDbCurve::cast(other);
    if (!other)
        return Acad::eNullEntityPointer;
    if (!otherCurve)
        return Acad::eNotApplicable;
    CurvePieces ownPieces, otherPieces;
    if (!ownPieces.cut(curve) || !otherPieces.cut(*otherCurve))
        return Acad::eOk;

    // Coordinates near the curve keep the digits that far ones would lose.
    const AcGeVector3d view = plane ? plane->normal() : viewOf(ownPieces, otherPieces);
    const AcGeMatrix3d toPlane = AcGeMatrix3d::worldToPlane(AcGePlane(ownPieces.pieces().front().start, view));
    const AcGeMatrix3d toWorld = AcGeMatrix3d::planeToWorld(AcGePlane(ownPieces.pieces().front().start, view));
    const bool extendOwn = type == AcDb::kExtendThis || type == AcDb::kExtendBoth;
    const bool extendOther = type == AcDb::kExtendArg || type == AcDb::kExtendBoth;
    const std::vector<CurvePiece> own = ownPieces.seenOn(toPlane, extendOwn);
    const std::vector<CurvePiece> others = otherPieces.seenOn(toPlane, extendOther);
    const double tolerance = toleranceFor(own, others);
    const BoxTree tree(others, tolerance);

    const int before = points.length();
    std::vector<Found> found;
    for (const CurvePiece& piece : own) {
        found.clear();
        tree.forEach(boxOf(piece, tolerance), [&](std::size_t i) {
            const PieceMeetings meetings = meetingsOf(piece, others[i], tolerance);
            for (int k = 0; k < meetings.count; ++k) {
                const auto [mine, its] = meetings.at[k];
                if (!plane && std::fabs(piece.depthAt(mine) - others[i].depthAt(its)) > spaceTolerance)
                    continue;
                found.push_back({mine, plane ? inSpace(piece, mine, toWorld)
                                             : meetingInSpace(piece, mine, others[i], its, toWorld)});
            }
        });
        std::ranges::stable_sort(found, {}, &Found::at);
        for (const Found& meeting : found)
            if (points.length() == before || meeting.point.distanceTo(points.last()) > 4.0 * tolerance)
                points.append(meeting.point);
    }
    // A closed curve may be met where it begins, which is also where it ends.
    if (ownPieces.isClosed() && points.length() > before + 1 &&
        points.last().distanceTo(points[before]) <= 4.0 * tolerance)
        points.removeLast();
    return Acad::eOk;
}
