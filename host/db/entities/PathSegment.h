#pragma once

#include <algorithm>
#include <cmath>

#include "ge/Angles.h"

#include "gepnt3d.h"

/// One segment of a polyline, in the coordinates of its plane: straight, or a circular arc parallel to the XY plane.
/// `bulge` is the tangent of a quarter of the angle turned, positive counter-clockwise. The parameter runs from 0 to 1,
/// evenly along the segment.
///
/// An arc is reckoned from its chord, not from its centre, which lies out of all precision where the bulge is small.
struct PathSegment {
    AcGePoint3d start, end;
    double bulge = 0.0;

    AcGeVector3d chord() const { return end - start; }
    bool isArc() const { return bulge != 0.0 && (end.x != start.x || end.y != start.y); }
    /// Signed angle turned, 0 when straight.
    double turn() const;
    double length() const;
    AcGePoint3d at(double t) const;
    AcGeVector3d derivative(double t) const;
    /// Parameter of the point of the segment nearest to `point`, distances measured in space.
    double nearest(const AcGePoint3d& point) const;
    /// Twice the area between the arc and its chord, positive on the right of a counter-clockwise arc.
    double twiceSegmentArea() const;

    /// Of an arc only.
    AcGePoint3d center() const;
    double radius() const;
    /// Direction from the centre to the start, from the X axis.
    double startAngle() const;

    /// Calls `take` with the parameter of every point of an arc where it runs along the X or the Y axis.
    template <class Take>
    void forExtremes(const Take& take) const
    {
        const double turned = turn();
        if (turned == 0.0)
            return;
        const double from = heading(0.0), to = from + turned;
        for (double k = std::ceil(std::min(from, to) / quarterTurn); k * quarterTurn <= std::max(from, to); k += 1.0)
            take((k * quarterTurn - from) / turned);
    }

private:
    double heading(double t) const;
};
