#include "gi/DashCutter.h"

#include "gi/ViewClip.h"

namespace {

constexpr double mostPatterns = 20000.0; // cut of one segment
constexpr double leastLength = 1e-9;     // of a dash or a gap, in patterns: less is the rounding of sums

double flatLength(const AcGePoint3d& from, const AcGePoint3d& to)
{
    return std::hypot(to.x - from.x, to.y - from.y);
}

} // namespace

DashCutter::DashCutter(const Dashes& dashes, double scale, double shortest, const Box2d& view, Take take) :
    m_dashes(dashes),
    m_scale(std::fabs(scale)),
    m_shortest(shortest),
    m_pattern(dashes.total * m_scale),
    m_view(view),
    m_take(std::move(take))
{
}

void DashCutter::cut(std::span<const AcGePoint3d> points)
{
    m_length = 0.0;
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
        m_length += flatLength(points[i], points[i + 1]);
    if (!(m_pattern > m_shortest) || !(m_length >= m_pattern) || !std::isfinite(m_length))
        return clipPolyline(points, m_view, m_take);
    const double first = m_dashes.lengths.front() * m_scale;
    m_lengthened = first > 0.0;
    m_ends = m_lengthened ? (first + m_length - std::floor(m_length / m_pattern) * m_pattern) / 2.0 : 0.0;
    m_phase = m_lengthened ? first - m_ends : 0.0;
    double begun = 0.0;
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        const double length = flatLength(points[i], points[i + 1]);
        cutSegment(points[i], points[i + 1], begun, length);
        begun += length;
    }
    flush();
}

void DashCutter::cutAt(const AcGePoint3d& from, const AcGePoint3d& to, double phase)
{
    const AcGePoint3d ends[] = {from, to};
    m_length = flatLength(from, to);
    if (!(m_pattern > m_shortest) || !std::isfinite(m_length) || !std::isfinite(phase))
        return clipPolyline(ends, m_view, m_take);
    m_lengthened = false;
    m_ends = 0.0;
    m_phase = phase;
    cutSegment(from, to, 0.0, m_length);
    flush();
}

/// Which element of the pattern covers a distance from the start.
DashCutter::Place DashCutter::placeAt(double distance) const
{
    const double nothing = m_pattern * leastLength;
    if (m_lengthened && distance < m_ends - nothing)
        return {0, m_ends - distance};
    if (m_lengthened && distance >= m_length - m_ends - nothing)
        return {0, std::max(m_length - distance, nothing)};
    double into = std::fmod(distance + m_phase, m_pattern);
    if (into < 0.0)
        into += m_pattern;
    for (std::size_t i = 0; i < m_dashes.lengths.size(); ++i) {
        const double own = std::fabs(m_dashes.lengths[i]) * m_scale;
        if (into < own - nothing)
            return {i, own - into};
        into -= own;
    }
    return {0, std::fabs(m_dashes.lengths.front()) * m_scale};
}

void DashCutter::cutSegment(const AcGePoint3d& from, const AcGePoint3d& to, double begun, double length)
{
    double start = 0.0, end = 1.0;
    if (!(length > 0.0))
        return;
    if (!clipSegment(from, to, m_view, start, end))
        return flush();
    if (start > 0.0)
        flush();
    const auto at = [&](double distance) { return between(from, to, distance / length); };
    if ((end - start) * length > mostPatterns * m_pattern) {
        const AcGePoint3d whole[] = {at(start * length), at(end * length)};
        flush();
        return m_take(whole);
    }
    double passed = start * length;
    const double last = end * length;
    Place place = placeAt(begun + passed);
    while (passed < last) {
        const bool down = m_dashes.lengths[place.element] >= 0.0;
        const double until = std::min(passed + place.left, last);
        if (down) {
            if (m_run.empty())
                m_run.push_back(at(passed));
            m_run.push_back(at(until));
        }
        if (until < last || !down)
            flush();
        passed = until;
        // Dots have no length to stand on: those behind this element are shown as it ends.
        for (std::size_t i = place.element + 1;
             until < last && i < m_dashes.lengths.size() && m_dashes.lengths[i] == 0.0; ++i) {
            const AcGePoint3d dot[] = {at(until), at(until)};
            m_take(dot);
        }
        place = placeAt(begun + passed);
    }
    if (end < 1.0)
        flush();
}

void DashCutter::flush()
{
    if (m_run.size() >= 2)
        m_take(m_run);
    m_run.clear();
}
