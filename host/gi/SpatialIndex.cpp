#include "gi/SpatialIndex.h"

namespace {

/// Place of a cell of a grid of 65536 × 65536 along Hilbert's curve.
std::uint32_t hilbert(std::uint32_t x, std::uint32_t y)
{
    std::uint32_t along = 0;
    for (std::uint32_t side = 1U << 15; side > 0; side >>= 1) {
        const std::uint32_t right = (x & side) != 0, up = (y & side) != 0;
        along = along << 2 | ((3 * right) ^ up);
        if (up == 0) {
            if (right == 1) {
                x = 0xFFFF - x;
                y = 0xFFFF - y;
            }
            std::swap(x, y);
        }
    }
    return along;
}

std::uint32_t cellOf(double value, double low, double size)
{
    const double share = size > 0.0 ? (value - low) / size : 0.0;
    const double held = share > 0.0 ? std::min(share, 1.0) : 0.0; // no number where boxes reach past all numbers
    return static_cast<std::uint32_t>(held * 65535.0);
}

} // namespace

void SpatialIndex::clear()
{
    m_positions.clear();
    m_levels.clear();
}

void SpatialIndex::build(const std::vector<Box2d>& boxes)
{
    clear();
    Box2d whole;
    for (const Box2d& box : boxes)
        whole.add(box);
    std::vector<std::pair<std::uint32_t, std::uint32_t>> order; // place along the curve, position
    order.reserve(boxes.size());
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        if (boxes[i].isEmpty())
            continue;
        const AcGePoint2d center = boxes[i].center();
        order.emplace_back(
            hilbert(cellOf(center.x, whole.minX, whole.width()), cellOf(center.y, whole.minY, whole.height())),
            static_cast<std::uint32_t>(i));
    }
    if (order.empty())
        return;
    std::ranges::sort(order);
    m_levels.emplace_back().reserve(order.size());
    m_positions.reserve(order.size());
    for (const auto& [along, position] : order) {
        m_positions.push_back(position);
        m_levels.front().push_back(boxes[position]);
    }
    while (m_levels.back().size() > fanOut) {
        const std::vector<Box2d>& below = m_levels.back();
        std::vector<Box2d> above((below.size() + fanOut - 1) / fanOut);
        for (std::size_t i = 0; i < below.size(); ++i)
            above[i / fanOut].add(below[i]);
        m_levels.push_back(std::move(above));
    }
}
