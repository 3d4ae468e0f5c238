#include "db/entities/FitCurve.h"

#include <algorithm>
#include <array>

namespace {

constexpr int reach = 32; // points on either side of a place: 2^-32 of what lies further is left out

/// From one point to the next; all zero where they coincide or there is none.
struct Chord {
    Chord() = default;
    Chord(const AcGePoint3d& from, const AcGePoint3d& to) : direction(to - from)
    {
        const double length = direction.length();
        inverse = length > 0.0 ? 1.0 / length : 0.0;
        direction = direction * inverse;
    }

    AcGeVector3d direction;
    double inverse = 0.0;
};

} // namespace

FitCurve::FitCurve(std::span<const AcGePoint3d> points, bool closed, const AcGeVector3d& startTangent,
                   const AcGeVector3d& endTangent) :
    m_points(points),
    m_closed(closed && points.size() > 2),
    m_start(startTangent),
    m_end(endTangent),
    m_spans(static_cast<int>(points.size()) - 1)
{
    if (m_closed && points.front() != points.back())
        ++m_spans;
}

const AcGePoint3d& FitCurve::point(int i) const
{
    if (m_closed)
        i = (i % m_spans + m_spans) % m_spans;
    return m_points[static_cast<std::size_t>(i)];
}

/// Derivative by the chord length at one of the points `first` to `last`, from which it is reckoned: Thomas's algorithm
/// on the equations that make second derivatives meet.
AcGeVector3d FitCurve::tangentAt(int first, int last, int wanted) const
{
    std::array<double, 2 * reach> above{}; // the upper diagonal and the right side, each divided by the diagonal
    std::array<AcGeVector3d, 2 * reach> right;
    Chord before;
    for (int i = first; i <= last; ++i) {
        const auto k = static_cast<std::size_t>(i - first);
        const Chord after = i < last ? Chord(point(i), point(i + 1)) : Chord();
        const bool isStart = !m_closed && i == 0, isEnd = !m_closed && i == m_spans;
        const AcGeVector3d& given = isEnd ? m_end : m_start;
        double lower = before.inverse, diagonal = 2.0 * (before.inverse + after.inverse), upper = after.inverse;
        AcGeVector3d sum = (before.direction * before.inverse + after.direction * after.inverse) * 3.0;
        if ((isStart || isEnd) && !given.isZeroLength()) {
            lower = upper = 0.0;
            diagonal = 1.0;
            sum = given.normal();
        }
        if (k > 0) {
            diagonal -= lower * above.at(k - 1);
            sum -= right.at(k - 1) * lower;
        }
        const double scale = diagonal > 0.0 ? 1.0 / diagonal : 0.0; // points that coincide have no tangent
        above.at(k) = upper * scale;
        right.at(k) = sum * scale;
        before = after;
    }
    AcGeVector3d tangent = right.at(static_cast<std::size_t>(last - first));
    for (int i = last - 1; i >= wanted; --i) {
        const auto k = static_cast<std::size_t>(i - first);
        tangent = right.at(k) - tangent * above.at(k);
    }
    return tangent;
}

AcGePoint3d FitCurve::at(double t) const
{
    const int span = std::clamp(static_cast<int>(t), 0, m_spans - 1);
    const double s = t - span;
    const AcGePoint3d &from = point(span), &to = point(span + 1);
    const double length = (to - from).length();
    const int first = m_closed ? span - reach + 1 : std::max(span - reach + 1, 0);
    const int last = m_closed ? span + reach : std::min(span + reach, m_spans);
    const AcGeVector3d leaving = tangentAt(first, last, span) * length;
    const AcGeVector3d arriving = tangentAt(first, last, span + 1) * length;
    const double rest = 1.0 - s;
    return from + (to - from) * (s * s * (3.0 - 2.0 * s)) + leaving * (s * rest * rest) - arriving * (s * s * rest);
}
