#pragma once

#include "gelent3d.h"

/// A line segment of space, its ends included.
class AcGeLineSeg3d : public AcGeLinearEnt3d {
public:
    /// From the origin to (1, 0, 0).
    AcGeLineSeg3d() : AcGeLineSeg3d(AcGePoint3d(0.0, 0.0, 0.0), AcGeVector3d(1.0, 0.0, 0.0)) {}
    AcGeLineSeg3d(const AcGePoint3d& start, const AcGeVector3d& startToEnd) : AcGeLineSeg3d(start, start + startToEnd)
    {
    }
    AcGeLineSeg3d(const AcGePoint3d& start, const AcGePoint3d& end) :
        AcGeLinearEnt3d(start, end - start, true),
        m_end(end)
    {
    }

    AcGePoint3d startPoint() const { return m_origin; }
    AcGePoint3d endPoint() const { return m_end; }
    double length() const { return m_axis.length(); }
    AcGeLineSeg3d& set(const AcGePoint3d& start, const AcGePoint3d& end) { return *this = AcGeLineSeg3d(start, end); }
    AcGeLineSeg3d& set(const AcGePoint3d& start, const AcGeVector3d& startToEnd)
    {
        return *this = AcGeLineSeg3d(start, startToEnd);
    }

private:
    AcGePoint3d m_end; // kept: start + axis would round it
};
