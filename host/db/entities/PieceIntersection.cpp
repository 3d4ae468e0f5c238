#include "db/entities/PieceIntersection.h"

#include <algorithm>
#include <cmath>

#include "ge/Angles.h"

namespace {

constexpr double parallelTolerance = 1e-12;

double cross(const AcGeVector2d& a, const AcGeVector2d& b)
{
    return a.x * b.y - a.y * b.x;
}

/// Whether the piece reaches to parameter t; one near an end becomes that end.
bool reaches(const CurvePiece& piece, double& t, double tolerance)
{
    const double size = piece.size();
    const double slack = size > 0.0 ? tolerance / size : 0.0;
    if (std::fabs(t) <= slack)
        t = 0.0;
    else if (std::fabs(t - 1.0) <= slack)
        t = 1.0;
    return (t >= 0.0 || piece.freeStart) && (t <= 1.0 || piece.freeEnd);
}

/// Parameter of the arc in a direction from its centre. A direction that the arc does not pass gives one just before
/// its start or beyond its end, whichever is nearer, or beyond the end when it is free there.
double arcParam(const CurvePiece& arc, const AcGePoint2d& point)
{
    const double sense = arc.turn < 0.0 ? -1.0 : 1.0;
    const double turned = std::fabs(arc.turn);
    double angle = sense * (std::atan2(point.y - arc.center.y, point.x - arc.center.x) - arc.startAngle);
    angle -= wholeTurn * std::floor(angle / wholeTurn);
    const bool nearerStart = wholeTurn - angle < angle - turned;
    if (angle > turned && (arc.freeStart || arc.freeEnd ? arc.freeStart && !arc.freeEnd : nearerStart))
        angle -= wholeTurn;
    else if (turned >= wholeTurn && wholeTurn - angle < 1e-12)
        angle = 0.0;
    return angle / turned;
}

PieceMeetings lineAndLine(const CurvePiece& a, const CurvePiece& b, double tolerance)
{
    PieceMeetings found;
    const AcGeVector2d d = a.chord(), e = b.chord(), between = b.start - a.start;
    const double size = d.length() * e.length();
    if (size == 0.0)
        return found;
    const double turn = cross(d, e);
    if (std::fabs(turn) > parallelTolerance * size) {
        double s = cross(between, e) / turn, t = cross(between, d) / turn;
        if (reaches(a, s, tolerance) && reaches(b, t, tolerance))
            found.add(s, t);
        return found;
    }
    if (a.freeStart || a.freeEnd || b.freeStart || b.freeEnd)
        return found;
    // In line, back to back, sharing an end: they only touch when they lie on different sides of it.
    for (const double s : {0.0, 1.0})
        for (const double t : {0.0, 1.0}) {
            const bool apart = ((s == t) ? -1.0 : 1.0) * d.dotProduct(e) > 0.0;
            if (apart && a.at(s).distanceTo(b.at(t)) <= tolerance)
                found.add(s, t);
            if (found.count == 1)
                return found;
        }
    return found;
}

PieceMeetings lineAndArc(const CurvePiece& line, const CurvePiece& arc, double tolerance)
{
    PieceMeetings found;
    const AcGeVector2d d = line.chord();
    const double length = d.length();
    if (length == 0.0 || arc.radius == 0.0)
        return found;
    const double middle = (arc.center - line.start).dotProduct(d) / (length * length);
    const double off = std::fabs(cross(d, arc.center - line.start)) / length;
    if (off > arc.radius + tolerance)
        return found;
    const bool tangent = std::fabs(off - arc.radius) <= tolerance;
    const double half = tangent ? 0.0 : std::sqrt((arc.radius - off) * (arc.radius + off)) / length;
    for (const double side : {-1.0, 1.0}) {
        double s = middle + side * half;
        double t = arcParam(arc, line.start + d * s);
        if (reaches(line, s, tolerance) && reaches(arc, t, tolerance))
            found.add(s, t);
        if (tangent)
            break;
    }
    return found;
}

PieceMeetings arcAndArc(const CurvePiece& a, const CurvePiece& b, double tolerance)
{
    PieceMeetings found;
    const AcGeVector2d between = b.center - a.center;
    const double apart = between.length();
    if (apart <= tolerance || apart > a.radius + b.radius + tolerance ||
        apart < std::fabs(a.radius - b.radius) - tolerance)
        return found;
    const double along = (apart + (a.radius - b.radius) * (a.radius + b.radius) / apart) / 2.0;
    const bool tangent = std::fabs(apart - a.radius - b.radius) <= tolerance ||
                         std::fabs(apart - std::fabs(a.radius - b.radius)) <= tolerance;
    const double up = tangent ? 0.0 : std::sqrt(std::max(0.0, (a.radius - along) * (a.radius + along)));
    const AcGeVector2d direction = between / apart;
    for (const double side : {-1.0, 1.0}) {
        const AcGePoint2d point = a.center + direction * along + direction.perpVector() * (side * up);
        double s = arcParam(a, point), t = arcParam(b, point);
        if (reaches(a, s, tolerance) && reaches(b, t, tolerance))
            found.add(s, t);
        if (tangent)
            break;
    }
    return found;
}

} // namespace

PieceMeetings meetingsOf(const CurvePiece& first, const CurvePiece& second, double tolerance)
{
    if (!first.isArc && !second.isArc)
        return lineAndLine(first, second, tolerance);
    if (!first.isArc)
        return lineAndArc(first, second, tolerance);
    if (second.isArc)
        return arcAndArc(first, second, tolerance);
    PieceMeetings found = lineAndArc(second, first, tolerance);
    for (PieceMeeting& meeting : found.at)
        std::swap(meeting.onFirst, meeting.onSecond);
    return found;
}
