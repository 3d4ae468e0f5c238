#pragma once

#include "gelent2d.h"

/// A line segment of the plane, its ends included.
class AcGeLineSeg2d : public AcGeLinearEnt2d {
public:
    /// From the origin to (1, 0).
    AcGeLineSeg2d() : AcGeLineSeg2d(AcGePoint2d(0.0, 0.0), AcGeVector2d(1.0, 0.0)) {}
    AcGeLineSeg2d(const AcGePoint2d& start, const AcGeVector2d& startToEnd) : AcGeLineSeg2d(start, start + startToEnd)
    {
    }
    AcGeLineSeg2d(const AcGePoint2d& start, const AcGePoint2d& end) :
        AcGeLinearEnt2d(start, end - start, true),
        m_end(end)
    {
    }

    AcGePoint2d startPoint() const { return m_origin; }
    AcGePoint2d endPoint() const { return m_end; }
    double length() const { return m_axis.length(); }
    AcGeLineSeg2d& set(const AcGePoint2d& start, const AcGePoint2d& end) { return *this = AcGeLineSeg2d(start, end); }
    AcGeLineSeg2d& set(const AcGePoint2d& start, const AcGeVector2d& startToEnd)
    {
        return *this = AcGeLineSeg2d(start, startToEnd);
    }

private:
    AcGePoint2d m_end; // kept: start + axis would round it
};
