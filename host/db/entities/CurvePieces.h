#pragma once

#include <vector>

#include "dbcurve.h"
#include "gemat3d.h"
#include "gepnt2d.h"

/// A straight or circular piece of a curve as seen on a plane, in coordinates of that plane.
/// Its parameter runs evenly from 0 to 1; one whose end is free goes on beyond it.
struct CurvePiece {
    AcGePoint2d start, end;
    double startDepth = 0.0, endDepth = 0.0; ///< distance from the plane: even along the piece
    bool isArc = false;
    AcGePoint2d center;
    double radius = 0.0, startAngle = 0.0, turn = 0.0; ///< signed
    bool freeStart = false, freeEnd = false;
    AcGePoint3d startInSpace, endInSpace;

    AcGePoint2d at(double t) const;
    double depthAt(double t) const { return startDepth + (endDepth - startDepth) * t; }
    AcGeVector2d chord() const { return end - start; }
    double size() const { return isArc ? radius * std::fabs(turn) : chord().length(); }
};

/// A curve cut into its pieces, in order. Ellipses, splines and circles seen aslant become many short chords.
class CurvePieces {
public:
    /// What a curve is made of in space: lines, or arcs of a plane.
    struct SpacePiece {
        AcGePoint3d start, end;
        bool isArc = false;
        AcGePoint3d center;
        AcGeVector3d toStart, across; ///< of an arc: two radii at right angles, the second where it turns first
        double turn = 0.0;            ///< positive
    };

    /// False when it is not a curve that can be cut, or has no extent.
    bool cut(const AcDbCurve& curve);
    const std::vector<SpacePiece>& pieces() const { return m_pieces; }
    bool isClosed() const { return m_closed; }
    /// Normal of the plane that the curve lies in; false for lines in space.
    bool plane(AcGeVector3d& normal) const;

    /// As seen on a plane; `toPlane` takes the world to its coordinates. The free ends are those of the whole curve.
    std::vector<CurvePiece> seenOn(const AcGeMatrix3d& toPlane, bool extended) const;

private:
    void addLine(const AcGePoint3d& start, const AcGePoint3d& end);
    void addArc(const AcGePoint3d& center, const AcGeVector3d& toStart, const AcGeVector3d& across, double turn);
    void addPath(const class VertexPath& path);
    void addSampled(const AcDbCurve& curve, int count);

    std::vector<SpacePiece> m_pieces;
    AcGeVector3d m_normal;
    bool m_hasPlane = false, m_closed = false;
};
