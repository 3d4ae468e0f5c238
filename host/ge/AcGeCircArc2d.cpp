#include <algorithm>

#include "ge/Angles.h"
#include "ge/cross2d.h"

#include "gecarc2d.h"

namespace {

/// The angle raised or lowered by whole turns into [low, low + 2π).
double raisedFrom(double angle, double low)
{
    const double raised = angle - wholeTurn * std::floor((angle - low) / wholeTurn);
    return raised < low + wholeTurn ? raised : low; // a hair below `low` rounds to a whole turn above
}

/// Tangent of a quarter of the angle that the arc from `start` through `through` to `end` turns; 0 on one line.
double bulgeThrough(const AcGePoint2d& start, const AcGePoint2d& through, const AcGePoint2d& end)
{
    // The angle inscribed at `through` leaves 2π − 2·inscribed for the arc itself.
    const AcGeVector2d a = start - through;
    const AcGeVector2d b = end - through;
    const double inscribed = a.angleTo(b);
    const double bulge = std::tan((halfTurn - inscribed) / 2.0);
    const double side = crossOf(a, b);
    if (std::fabs(side) <= AcGeContext::gTol.equalVector() * a.length() * b.length())
        return 0.0;
    return side < 0.0 ? bulge : -bulge;
}

} // namespace

AcGeCircArc2d::AcGeCircArc2d(const AcGePoint2d& center, double radius) : m_center(center), m_radius(radius) {}

AcGeCircArc2d::AcGeCircArc2d(const AcGePoint2d& center, double radius, double startAngle, double endAngle,
                             const AcGeVector2d& refVec, Adesk::Boolean isClockWise) :
    m_center(center),
    m_radius(radius),
    m_startAngle(startAngle),
    m_endAngle(endAngle),
    m_refVec(refVec.normal()),
    m_clockWise(isClockWise)
{
    if (!(m_endAngle > m_startAngle)) {
        m_endAngle = raisedFrom(m_endAngle, m_startAngle);
        if (m_endAngle == m_startAngle)
            m_endAngle += wholeTurn;
    }
}

AcGeCircArc2d::AcGeCircArc2d(const AcGePoint2d& start, const AcGePoint2d& end, double bulge, Adesk::Boolean bulgeFlag)
{
    const AcGeVector2d chord = end - start;
    const double tangent = bulgeFlag ? 2.0 * bulge / chord.length() : bulge;
    if (bulge == 0.0 || chord.isZeroLength()) {
        m_center = start;
        m_radius = 0.0;
        m_endAngle = 0.0;
        return;
    }
    m_center = start + chord * 0.5 + chord.perpVector() * ((1.0 - tangent * tangent) / (4.0 * tangent));
    m_radius = chord.length() * (1.0 + tangent * tangent) / (4.0 * std::fabs(tangent));
    m_endAngle = 4.0 * std::atan(std::fabs(tangent));
    m_refVec = (start - m_center).normal();
    m_clockWise = tangent < 0.0;
}

AcGeCircArc2d::AcGeCircArc2d(const AcGePoint2d& start, const AcGePoint2d& through, const AcGePoint2d& end) :
    AcGeCircArc2d(start, end, bulgeThrough(start, through, end), Adesk::kFalse)
{
}

AcGePoint2d AcGeCircArc2d::evalPoint(double angle) const
{
    const double counterClockwise = m_clockWise ? -angle : angle;
    return m_center +
           (m_refVec * std::cos(counterClockwise) + m_refVec.perpVector() * std::sin(counterClockwise)) * m_radius;
}

double AcGeCircArc2d::angleOf(const AcGePoint2d& p) const
{
    const AcGeVector2d out = p - m_center;
    const double counterClockwise = std::atan2(crossOf(m_refVec, out), m_refVec.dotProduct(out));
    return raisedFrom(m_clockWise ? -counterClockwise : counterClockwise, m_startAngle);
}

double AcGeCircArc2d::paramOf(const AcGePoint2d& p) const
{
    if (p.x == m_center.x && p.y == m_center.y)
        return m_startAngle;
    const double angle = angleOf(p);
    if (angle <= m_endAngle)
        return angle;
    return angle - m_endAngle < m_startAngle + wholeTurn - angle ? m_endAngle : m_startAngle;
}

Adesk::Boolean AcGeCircArc2d::intersectWith(const AcGeLinearEnt2d& line, int& count, AcGePoint2d& p1, AcGePoint2d& p2,
                                            const AcGeTol& tol) const
{
    count = 0;
    const AcGeVector2d direction = line.direction();
    const AcGeVector2d axis = line.evalPoint(1.0) - line.pointOnLine();
    if (axis.isZeroLength(tol))
        return Adesk::kFalse;
    const AcGeVector2d toCenter = m_center - line.pointOnLine();
    const double along = toCenter.dotProduct(direction);
    const double apart = std::fabs(crossOf(direction, toCenter));
    if (apart > m_radius + tol.equalPoint())
        return Adesk::kFalse;
    const bool tangent = std::fabs(apart - m_radius) <= tol.equalPoint();
    const double half = tangent ? 0.0 : std::sqrt((m_radius - apart) * (m_radius + apart));

    const auto take = [&](double distance) {
        const AcGePoint2d p = line.pointOnLine() + direction * distance;
        const double angle = angleOf(p);
        const double beyond = std::min(angle - m_endAngle, m_startAngle + wholeTurn - angle) * m_radius;
        if (line.isOn(distance / axis.length(), tol) && beyond <= tol.equalPoint())
            (count++ == 0 ? p1 : p2) = p;
    };
    take(along - half);
    if (!tangent)
        take(along + half);
    return count > 0;
}

void AcGeCircArc2d::getSamplePoints(int count, AcGePoint2dArray& points) const
{
    points.removeAll();
    for (int i = 0; i < count; ++i)
        points.append(evalPoint(m_startAngle + (m_endAngle - m_startAngle) * i / std::max(count - 1, 1)));
}
