#include "gi/PatternLines.h"

#include <algorithm>
#include <cmath>

#include "gi/DashCutter.h"

namespace {

constexpr double leastPixels = 2.0;            // between two lines
constexpr double mostLines = 20000.0;          // of one family in a view
constexpr std::size_t mostCrossings = 4000000; // of lines with the rings

/// Coordinates of a family: `along` its lines, in lengths of its direction, and `step`, the number of the line.
class FamilyAxes {
public:
    explicit FamilyAxes(const PatternFamily& family) : m_family(family)
    {
        const AcGeVector3d &d = family.direction, &o = family.offset;
        m_cross = d.x * o.y - d.y * o.x;
    }

    /// Whether the lines lie apart.
    bool isValid() const { return std::isfinite(m_cross) && std::fabs(m_cross) > 0.0 && spacing() > 0.0; }
    double spacing() const { return std::fabs(m_cross) / std::hypot(m_family.direction.x, m_family.direction.y); }
    double step(const AcGePoint3d& p) const
    {
        const AcGeVector3d v = p - m_family.base;
        return (m_family.direction.x * v.y - m_family.direction.y * v.x) / m_cross;
    }
    double along(const AcGePoint3d& p) const
    {
        const AcGeVector3d v = p - m_family.base;
        return (v.x * m_family.offset.y - v.y * m_family.offset.x) / m_cross;
    }
    AcGePoint3d at(double step, double along, double z) const
    {
        AcGePoint3d p = m_family.base + m_family.offset * step + m_family.direction * along;
        p.z = z;
        return p;
    }

private:
    const PatternFamily& m_family;
    double m_cross = 0.0;
};

/// Where the lines first, first + stride, ... cross the rings.
class Crossings {
public:
    Crossings(const FamilyAxes& axes, double first, double last, double stride) :
        m_axes(axes),
        m_first(first),
        m_stride(stride),
        m_lines(static_cast<std::size_t>((last - first) / stride) + 1)
    {
    }

    /// False when there are more than can be borne.
    bool add(const AcGePoint3d& from, const AcGePoint3d& to)
    {
        const double a = (m_axes.step(from) - m_first) / m_stride, b = (m_axes.step(to) - m_first) / m_stride;
        if (a == b)
            return true;
        const double alongA = m_axes.along(from), alongB = m_axes.along(to);
        // A line through a corner crosses one of its two edges only.
        const double low = std::max(std::ceil(std::min(a, b)), 0.0);
        const double high = std::min(std::ceil(std::max(a, b)), static_cast<double>(m_lines.size()));
        for (double line = low; line < high; line += 1.0) {
            if (++m_count > mostCrossings)
                return false;
            m_lines[static_cast<std::size_t>(line)].push_back(alongA + (alongB - alongA) * (line - a) / (b - a));
        }
        return true;
    }

    std::vector<std::vector<double>>& lines() { return m_lines; }
    double stepOf(std::size_t line) const { return m_first + m_stride * static_cast<double>(line); }

private:
    const FamilyAxes& m_axes;
    double m_first, m_stride;
    std::vector<std::vector<double>> m_lines;
    std::size_t m_count = 0;
};

/// The lines that cross a box: numbers from first to last.
void stepsAcross(const Box2d& box, const FamilyAxes& axes, double& first, double& last)
{
    first = std::numeric_limits<double>::infinity();
    last = -first;
    for (const double x : {box.minX, box.maxX})
        for (const double y : {box.minY, box.maxY}) {
            const double step = axes.step(AcGePoint3d(x, y, 0.0));
            first = std::min(first, std::ceil(step));
            last = std::max(last, std::floor(step));
        }
}

} // namespace

void patternLines(const std::vector<std::vector<AcGePoint3d>>& rings, const PatternFamily& family,
                  const SceneView& view, const std::function<void(std::span<const AcGePoint3d>)>& take)
{
    const FamilyAxes axes(family);
    Box2d box;
    for (const auto& ring : rings)
        for (const AcGePoint3d& point : ring)
            box.add(point);
    const Box2d seen = view.box();
    if (!axes.isValid() || !box.touches(seen))
        return;
    const Box2d shown{std::max(box.minX, seen.minX), std::max(box.minY, seen.minY), std::min(box.maxX, seen.maxX),
                      std::min(box.maxY, seen.maxY)};
    double first = 0.0, last = 0.0;
    stepsAcross(shown, axes, first, last);
    if (!(first <= last) || !std::isfinite(last - first))
        return;
    const double stride =
        std::max({1.0, std::ceil(leastPixels * view.pixel / axes.spacing()), std::ceil((last - first) / mostLines)});
    first = std::ceil(first / stride) * stride; // the same lines wherever the view is moved to
    if (first > last)
        return;

    Crossings crossings(axes, first, last, stride);
    for (const auto& ring : rings)
        for (std::size_t i = 0; i < ring.size(); ++i)
            if (!crossings.add(ring[i], ring[i + 1 < ring.size() ? i + 1 : 0]))
                return;

    const Dashes dashes = usableDashes(family.dashes);
    const double unit = std::hypot(family.direction.x, family.direction.y);
    const bool dashed = !dashes.lengths.empty() && view.dashes;
    DashCutter cutter(dashes, unit, leastPixels * view.pixel, seen, take);
    const double z = rings.front().front().z;
    for (std::size_t line = 0; line < crossings.lines().size(); ++line) {
        std::vector<double>& places = crossings.lines()[line];
        std::ranges::sort(places);
        for (std::size_t i = 0; i + 1 < places.size(); i += 2) {
            const double step = crossings.stepOf(line);
            const AcGePoint3d ends[] = {axes.at(step, places[i], z), axes.at(step, places[i + 1], z)};
            if (dashed)
                cutter.cutAt(ends[0], ends[1], places[i] * unit);
            else
                take(ends);
        }
    }
}
