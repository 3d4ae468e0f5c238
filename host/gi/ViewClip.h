#pragma once

#include <span>
#include <vector>

#include "gi/Box2d.h"

/// Cuts lines and areas to a box, so that what is painted never lies far outside a picture.

/// The part of a line within a box, as shares of its way; false when there is none.
bool clipSegment(const AcGePoint3d& from, const AcGePoint3d& to, const Box2d& box, double& start, double& end);

/// The point at a share of the way.
AcGePoint3d between(const AcGePoint3d& from, const AcGePoint3d& to, double share);

Box2d boxOf(std::span<const AcGePoint3d> points);

/// Calls `take` with each run of a polyline within a box.
template <class Take>
void clipPolyline(std::span<const AcGePoint3d> points, const Box2d& box, const Take& take)
{
    std::vector<AcGePoint3d> run;
    const auto flush = [&] {
        if (run.size() >= 2)
            take(std::span<const AcGePoint3d>(run));
        run.clear();
    };
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        double start = 0.0, end = 1.0;
        if (!clipSegment(points[i], points[i + 1], box, start, end)) {
            flush();
            continue;
        }
        if (start > 0.0)
            flush();
        if (run.empty())
            run.push_back(between(points[i], points[i + 1], start));
        run.push_back(between(points[i], points[i + 1], end));
        if (end < 1.0)
            flush();
    }
    flush();
}

/// A ring cut to a box; filled by odd and even, what is left shows what the ring shows of the box. May be empty.
std::vector<AcGePoint3d> clipRing(std::vector<AcGePoint3d> ring, const Box2d& box);
