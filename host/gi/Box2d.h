#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

#include "gepnt2d.h"
#include "gepnt3d.h"

/// A box with sides along the axes, seen from above. A new one is empty.
struct Box2d {
    double minX = std::numeric_limits<double>::infinity(), minY = minX;
    double maxX = -std::numeric_limits<double>::infinity(), maxY = maxX;

    bool isEmpty() const { return !(minX <= maxX && minY <= maxY); }
    double width() const { return isEmpty() ? 0.0 : maxX - minX; }
    double height() const { return isEmpty() ? 0.0 : maxY - minY; }
    AcGePoint2d center() const { return {(minX + maxX) / 2.0, (minY + maxY) / 2.0}; }

    /// A coordinate that is no number adds nothing.
    void add(double x, double y)
    {
        if (!std::isfinite(x) || !std::isfinite(y))
            return;
        minX = std::min(minX, x);
        minY = std::min(minY, y);
        maxX = std::max(maxX, x);
        maxY = std::max(maxY, y);
    }
    void add(const AcGePoint3d& point) { add(point.x, point.y); }
    void add(const Box2d& other)
    {
        minX = std::min(minX, other.minX);
        minY = std::min(minY, other.minY);
        maxX = std::max(maxX, other.maxX);
        maxY = std::max(maxY, other.maxY);
    }

    /// Borders count.
    bool touches(const Box2d& other) const
    {
        return minX <= other.maxX && maxX >= other.minX && minY <= other.maxY && maxY >= other.minY;
    }
    bool holds(const Box2d& other) const
    {
        return !other.isEmpty() && minX <= other.minX && maxX >= other.maxX && minY <= other.minY && maxY >= other.maxY;
    }
    bool holds(double x, double y) const { return x >= minX && x <= maxX && y >= minY && y <= maxY; }
    Box2d grown(double by) const { return {minX - by, minY - by, maxX + by, maxY + by}; }
};
