#pragma once

#include <optional>

#include "gepnt2d.h"
#include "gevec2d.h"

/// Circular arcs of the plane, worked out from what a user gives. Angles are radians; a bulge is the tangent of a
/// quarter of the angle turned, positive counter-clockwise. Nothing where there is no such arc.

struct PlaneArc {
    AcGePoint2d center;
    double radius;
    double start, end; ///< directions from the centre, counter-clockwise from the one to the other
};

std::optional<PlaneArc> arcOfBulge(const AcGePoint2d& from, const AcGePoint2d& to, double bulge);
std::optional<PlaneArc> arcThrough(const AcGePoint2d& from, const AcGePoint2d& through, const AcGePoint2d& to);
struct PlaneCircle {
    AcGePoint2d center;
    double radius;
};
std::optional<PlaneCircle> circleThrough(const AcGePoint2d& a, const AcGePoint2d& b, const AcGePoint2d& c);

/// Of the arc that leaves `from` in the direction of `tangent`.
std::optional<double> bulgeByTangent(const AcGePoint2d& from, double tangent, const AcGePoint2d& to);
std::optional<double> bulgeThrough(const AcGePoint2d& from, const AcGePoint2d& through, const AcGePoint2d& to);
/// Of the smaller arc of that radius, counter-clockwise; of the larger one for a negative radius.
std::optional<double> bulgeByRadius(const AcGePoint2d& from, const AcGePoint2d& to, double radius);
/// Of an arc that turns by an angle, less than a whole turn.
std::optional<double> bulgeByAngle(double turned);
/// The angle that a chord of that length spans about a centre; of the larger arc for a negative chord.
std::optional<double> angleOfChord(double chord, double radius);
/// Counter-clockwise from one direction to the other, above 0 up to a whole turn.
double turnBetween(double from, double to);
/// The direction in which an arc, or with bulge 0 a line, arrives.
double directionAtEnd(const AcGePoint2d& from, const AcGePoint2d& to, double bulge);
