#pragma once

#include <span>
#include <vector>

#include "gi/Box2d.h"

/// What is picked with, seen from above: an area with a border, or an open line that has no inside.
class PickArea {
public:
    using Points = std::span<const AcGePoint3d>;

    static PickArea ofBox(const Box2d& box);
    static PickArea ofPolygon(std::span<const AcGePoint2d> polygon) { return PickArea(polygon, true); }
    static PickArea ofFence(std::span<const AcGePoint2d> points) { return PickArea(points, false); }

    const Box2d& box() const { return m_box; }
    /// By the rule of odd and even; a fence holds nothing.
    bool holds(double x, double y) const;
    /// Whether a line meets the border.
    bool meetsBorder(const AcGePoint3d& from, const AcGePoint3d& to) const;

    bool touches(Points line) const;
    bool encloses(Points line) const;
    /// A filled ring: it may also hold the whole area.
    bool touchesFilled(std::span<const std::vector<AcGePoint3d>> rings) const;
    bool encloses(std::span<const std::vector<AcGePoint3d>> rings) const;

private:
    PickArea(std::span<const AcGePoint2d> points, bool closed);

    std::vector<AcGePoint2d> m_points; // a closed one ends where it begins
    Box2d m_box;
    bool m_closed, m_isBox = false;
};

/// Whether a point lies in rings filled by the rule of odd and even.
bool isWithin(std::span<const std::vector<AcGePoint3d>> rings, double x, double y);
