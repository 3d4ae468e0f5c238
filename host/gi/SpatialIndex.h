#pragma once

#include <cstdint>
#include <vector>

#include "gi/Box2d.h"

/// Finds boxes by place: a packed tree over boxes that are sorted along a curve which keeps neighbours together.
/// Built at once, never changed; 16 boxes under a node.
class SpatialIndex {
public:
    /// Positions of boxes in `boxes` are what queries give. Empty boxes are left out.
    void build(const std::vector<Box2d>& boxes);
    void clear();

    /// Calls `take` with the position of each box that touches `box`, in no order.
    template <class Take>
    void query(const Box2d& box, const Take& take) const
    {
        if (!m_levels.empty())
            query(m_levels.size() - 1, 0, box, take);
    }

private:
    static constexpr std::size_t fanOut = 16;

    template <class Take>
    void query(std::size_t level, std::size_t node, const Box2d& box, const Take& take) const
    {
        const std::vector<Box2d>& boxes = m_levels[level];
        const std::size_t last = std::min(boxes.size(), (node + 1) * fanOut);
        for (std::size_t i = node * fanOut; i < last; ++i) {
            if (!boxes[i].touches(box))
                continue;
            if (level == 0)
                take(m_positions[i]);
            else
                query(level - 1, i, box, take);
        }
    }

    std::vector<std::uint32_t> m_positions; // of the boxes of the lowest level
    std::vector<std::vector<Box2d>> m_levels;
};
