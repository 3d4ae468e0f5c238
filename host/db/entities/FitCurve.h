#pragma once

#include <span>

#include "gepnt3d.h"

/// The curve of a spline of which only the points that it runs through are known: cubics of the chord lengths between
/// them, whose second derivatives meet, along the tangents given at its ends or straight there.
///
/// Nothing is kept from one place to the next: what points say about a curve halves from each to the next, so those
/// near a place are enough.
class FitCurve {
public:
    /// A tangent of length 0 is not given. A closed curve goes on from the last point to the first, which may be the
    /// same, and has no ends.
    FitCurve(std::span<const AcGePoint3d> points, bool closed, const AcGeVector3d& startTangent,
             const AcGeVector3d& endTangent);

    /// How many stretches there are; less than 1: it is no curve.
    int spans() const { return m_spans; }
    /// The point at `t`, from 0 to spans(); whole numbers are the points.
    AcGePoint3d at(double t) const;

private:
    const AcGePoint3d& point(int i) const;
    AcGeVector3d tangentAt(int first, int last, int wanted) const;

    std::span<const AcGePoint3d> m_points;
    bool m_closed;
    AcGeVector3d m_start, m_end;
    int m_spans;
};
