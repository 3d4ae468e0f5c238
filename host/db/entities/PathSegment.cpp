#include "db/entities/PathSegment.h"

double PathSegment::turn() const
{
    return isArc() ? 4.0 * std::atan(bulge) : 0.0;
}

double PathSegment::length() const
{
    const double half = turn() / 2.0;
    const double straight = chord().length();
    return half == 0.0 ? straight : straight * half / std::sin(half);
}

AcGePoint3d PathSegment::at(double t) const
{
    if (t == 0.0)
        return start;
    if (t == 1.0)
        return end;
    const double turned = turn();
    if (turned == 0.0)
        return start + chord() * t;
    const double reach = std::sin(t * turned / 2.0) / std::sin(turned / 2.0);
    const double back = (t - 1.0) * turned / 2.0;
    const AcGeVector3d c = chord();
    const double cosine = std::cos(back), sine = std::sin(back);
    return start + AcGeVector3d(c.x * cosine - c.y * sine, c.x * sine + c.y * cosine, 0.0) * reach;
}

double PathSegment::heading(double t) const
{
    const AcGeVector3d c = chord();
    return std::atan2(c.y, c.x) + (t - 0.5) * turn();
}

AcGeVector3d PathSegment::derivative(double t) const
{
    if (!isArc())
        return chord();
    const double direction = heading(t);
    return AcGeVector3d(std::cos(direction), std::sin(direction), 0.0) * length();
}

double PathSegment::nearest(const AcGePoint3d& point) const
{
    const AcGeVector3d c = chord();
    if (!isArc()) {
        const double squared = c.lengthSqrd();
        return squared > 0.0 ? std::clamp((point - start).dotProduct(c) / squared, 0.0, 1.0) : 0.0;
    }
    const AcGePoint3d middle = center();
    const double sense = bulge > 0.0 ? 1.0 : -1.0;
    const double turned = std::fabs(turn());
    double angle = sense * (std::atan2(point.y - middle.y, point.x - middle.x) - startAngle());
    angle -= wholeTurn * std::floor(angle / wholeTurn);
    if (angle > turned) // beyond the arc: the nearer end, half the gap belonging to each
        return angle - turned < wholeTurn - angle ? 1.0 : 0.0;
    const double t = angle / turned;
    const double away = std::hypot(point.x - middle.x, point.y - middle.y);
    if (away == 0.0)
        return 0.0;
    const AcGeVector3d along = derivative(t); // one step of Newton's repairs what a far centre blurred
    const AcGeVector3d off = point - at(t);
    const double step = (off.x * along.x + off.y * along.y) * radius() / (along.lengthSqrd() * away);
    return std::clamp(t + step, 0.0, 1.0);
}

double PathSegment::twiceSegmentArea() const
{
    const double turned = turn();
    if (turned == 0.0)
        return 0.0;
    const double sine = std::sin(turned / 2.0);
    return chord().lengthSqrd() * (turned - std::sin(turned)) / (4.0 * sine * sine);
}

AcGePoint3d PathSegment::center() const
{
    const AcGeVector3d c = chord();
    return start + c / 2.0 + AcGeVector3d(-c.y, c.x, 0.0) * ((1.0 / bulge - bulge) / 4.0);
}

double PathSegment::radius() const
{
    return chord().length() * (1.0 / std::fabs(bulge) + std::fabs(bulge)) / 4.0;
}

double PathSegment::startAngle() const
{
    // The centre lies a quarter turn to the left of the way a counter-clockwise arc starts.
    return heading(0.0) + (bulge > 0.0 ? -1.0 : 1.0) * quarterTurn;
}
