#include "commands/ArcGeometry.h"

#include <cmath>

#include "ge/Angles.h"

#include "gecarc2d.h"

namespace {

double signedAngle(double from, double to)
{
    return std::remainder(to - from, wholeTurn);
}

std::optional<double> finiteBulge(double value)
{
    constexpr double most = 1e9; // of a bulge: nearly a whole turn
    return std::isfinite(value) && std::fabs(value) < most ? std::optional(value) : std::nullopt;
}

} // namespace

double turnBetween(double from, double to)
{
    const double turned = std::fmod(to - from, wholeTurn);
    return turned > 0.0 ? turned : turned + wholeTurn;
}

std::optional<PlaneArc> arcOfBulge(const AcGePoint2d& from, const AcGePoint2d& to, double bulge)
{
    const AcGeCircArc2d arc(from, to, bulge, Adesk::kFalse);
    if (bulge == 0.0 || !(arc.radius() > 0.0))
        return std::nullopt;
    const double first = (from - arc.center()).angle(), last = (to - arc.center()).angle();
    const bool counterClockwise = bulge > 0.0;
    return PlaneArc{arc.center(), arc.radius(), counterClockwise ? first : last, counterClockwise ? last : first};
}

std::optional<PlaneArc> arcThrough(const AcGePoint2d& from, const AcGePoint2d& through, const AcGePoint2d& to)
{
    const auto bulge = bulgeThrough(from, through, to);
    return bulge ? arcOfBulge(from, to, *bulge) : std::nullopt;
}

std::optional<PlaneCircle> circleThrough(const AcGePoint2d& a, const AcGePoint2d& b, const AcGePoint2d& c)
{
    const AcGeCircArc2d arc(a, b, c);
    if (!(arc.radius() > 0.0) || !std::isfinite(arc.radius()))
        return std::nullopt;
    return PlaneCircle{arc.center(), arc.radius()};
}

std::optional<double> bulgeByTangent(const AcGePoint2d& from, double tangent, const AcGePoint2d& to)
{
    if (from == to)
        return std::nullopt;
    return finiteBulge(std::tan(signedAngle(tangent, (to - from).angle()) / 2.0)); // the chord halves the turn
}

std::optional<double> bulgeThrough(const AcGePoint2d& from, const AcGePoint2d& through, const AcGePoint2d& to)
{
    if (from == to || from == through || through == to || AcGeCircArc2d(from, through, to).radius() <= 0.0)
        return std::nullopt;
    // The angle under which the chord is seen from a point of the arc, π less half the angle turned.
    const double half = signedAngle((through - from).angle(), (to - through).angle());
    return finiteBulge(std::tan(half / 2.0));
}

std::optional<double> bulgeByRadius(const AcGePoint2d& from, const AcGePoint2d& to, double radius)
{
    const double chord = from.distanceTo(to);
    const auto turned = angleOfChord(radius < 0.0 ? -chord : chord, std::fabs(radius));
    return turned ? bulgeByAngle(*turned) : std::nullopt;
}

std::optional<double> bulgeByAngle(double turned)
{
    if (turned == 0.0 || std::fabs(turned) >= wholeTurn)
        return std::nullopt;
    return finiteBulge(std::tan(turned / 4.0));
}

std::optional<double> angleOfChord(double chord, double radius)
{
    const double sine = std::fabs(chord) / (2.0 * radius);
    if (!(radius > 0.0) || chord == 0.0 || sine > 1.0)
        return std::nullopt;
    const double smaller = 2.0 * std::asin(sine);
    return chord > 0.0 ? smaller : wholeTurn - smaller;
}

double directionAtEnd(const AcGePoint2d& from, const AcGePoint2d& to, double bulge)
{
    return (to - from).angle() + 2.0 * std::atan(bulge);
}
