#include "gi/DashCutter.h"

#include "gi/ViewClip.h"

namespace {

constexpr int mostPieces = 40000; // cut of one segment: finer than any view shows

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

double DashCutter::lengthOf(std::size_t element) const
{
    return std::fabs(m_dashes.lengths[element]) * m_scale;
}

/// Which element of the pattern covers a distance from the start: never a dot, which has no length to stand on.
DashCutter::Place DashCutter::placeAt(double distance) const
{
    const double nothing = m_pattern * leastDash;
    if (m_lengthened && distance < m_ends - nothing)
        return {0, m_ends - distance, false};
    if (m_lengthened && distance >= m_length - m_ends - nothing)
        return {0, std::max(m_length - distance, nothing), false};
    double into = std::fmod(distance + m_phase, m_pattern);
    if (into < 0.0)
        into += m_pattern;
    if (into > m_pattern - nothing) // the next pattern, but for rounding
        into = 0.0;
    for (std::size_t i = 0; i < m_dashes.lengths.size(); ++i) {
        const double own = lengthOf(i);
        if (into < own - nothing)
            return {i, own - into, into <= nothing};
        into -= own;
    }
    return {0, m_pattern, false}; // elements that are all but nothing
}

/// The dots between an element that begins at `where` and the one before.
void DashCutter::showDotsBefore(std::size_t element, const AcGePoint3d& where)
{
    const std::size_t count = m_dashes.lengths.size();
    const AcGePoint3d dot[] = {where, where};
    for (std::size_t back = 1; back < count && m_dashes.lengths[(element + count - back) % count] == 0.0; ++back)
        m_take(dot);
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
    double passed = start * length;
    const double last = end * length;
    const double expected = (last - passed) / m_pattern * static_cast<double>(m_dashes.lengths.size());
    // Far from the segment's start a piece may be too short to be added to the distance: they are counted as well.
    for (int pieces = 0; passed < last && pieces < mostPieces && expected < mostPieces; ++pieces) {
        const Place place = placeAt(begun + passed);
        if (place.isBegin)
            showDotsBefore(place.element, at(passed));
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
    }
    if (passed < last) {
        const AcGePoint3d whole[] = {at(passed), at(last)};
        flush();
        return m_take(whole);
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
