#pragma once

#include "dbmain.h"
#include "gept3dar.h"
#include "gevec3d.h"

class AcGePlane;
class VertexPath;

/// A curve in space, run through by a parameter from its start to its end.
///
/// Parameters: a line by its length, an arc or circle by its angle (radians), a polyline by its vertices (2.5 is half
/// way from the third to the fourth, by angle on an arc segment), an ellipse by its eccentric angle, a spline by its
/// knots. Distances are lengths along the curve from its start. Points are world coordinates.
/// A point or parameter that is not on the curve gives eInvalidInput.
class AcDbCurve : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbCurve);

    virtual Adesk::Boolean isClosed() const { return Adesk::kFalse; }
    virtual Adesk::Boolean isPeriodic() const { return Adesk::kFalse; }
    virtual Adesk::Boolean isPlanar() const { return Adesk::kTrue; }

    virtual Acad::ErrorStatus getStartParam(double& param) const = 0;
    virtual Acad::ErrorStatus getEndParam(double& param) const = 0;
    virtual Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const;
    virtual Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const;

    virtual Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const = 0;
    /// The point must lie on the curve, within 1e-6 drawing units.
    virtual Acad::ErrorStatus getParamAtPoint(const AcGePoint3d& point, double& param) const;
    virtual Acad::ErrorStatus getDistAtParam(double param, double& dist) const = 0;
    virtual Acad::ErrorStatus getParamAtDist(double dist, double& param) const = 0;
    virtual Acad::ErrorStatus getDistAtPoint(const AcGePoint3d& point, double& dist) const;
    virtual Acad::ErrorStatus getPointAtDist(double dist, AcGePoint3d& point) const;

    /// Derivative by the parameter: its length is the speed at which the parameter runs.
    virtual Acad::ErrorStatus getFirstDeriv(double param, AcGeVector3d& deriv) const = 0;
    virtual Acad::ErrorStatus getFirstDeriv(const AcGePoint3d& point, AcGeVector3d& deriv) const;

    /// The nearest point of the curve; with `extend`, of a line or arc without its ends.
    virtual Acad::ErrorStatus getClosestPointTo(const AcGePoint3d& point, AcGePoint3d& onCurve,
                                                Adesk::Boolean extend = Adesk::kFalse) const = 0;

    /// Area enclosed by the curve and, when it is open, the line from its end to its start; never negative.
    virtual Acad::ErrorStatus getArea(double& area) const;
    virtual Acad::ErrorStatus reverseCurve() { return Acad::eNotApplicable; }

    /// The curve dropped at right angles on a plane, new and owned by the caller. Circles and arcs become ellipses
    /// where the plane is not parallel to theirs.
    virtual Acad::ErrorStatus getOrthoProjectedCurve(const AcGePlane& plane, AcDbCurve*& projected) const;

    Acad::ErrorStatus intersectWith(const AcDbEntity* other, AcDb::Intersect type, AcGePoint3dArray& points,
                                    Adesk::GsMarker thisMarker = 0, Adesk::GsMarker otherMarker = 0) const override;
    /// Where the two meet when both are dropped on a plane; the points are those of this curve.
    virtual Acad::ErrorStatus intersectWith(const AcDbEntity* other, AcDb::Intersect type, const AcGePlane& plane,
                                            AcGePoint3dArray& points, Adesk::GsMarker thisMarker = 0,
                                            Adesk::GsMarker otherMarker = 0) const;

protected:
    AcDbCurve() = default;
    AcDbCurve(const AcDbCurve&) = default;
};

/// What curves that run from vertex to vertex share: lightweight, 2D and 3D polylines.
class AcDbPathCurve : public AcDbCurve {
public:
    Acad::ErrorStatus getStartParam(double& param) const override;
    Acad::ErrorStatus getEndParam(double& param) const override;
    Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const override;
    Acad::ErrorStatus getDistAtParam(double param, double& dist) const override;
    Acad::ErrorStatus getParamAtDist(double dist, double& param) const override;
    using AcDbCurve::getFirstDeriv;
    Acad::ErrorStatus getFirstDeriv(double param, AcGeVector3d& deriv) const override;
    Acad::ErrorStatus getParamAtPoint(const AcGePoint3d& point, double& param) const override;
    Acad::ErrorStatus getClosestPointTo(const AcGePoint3d& point, AcGePoint3d& onCurve,
                                        Adesk::Boolean extend = Adesk::kFalse) const override;
    Acad::ErrorStatus getArea(double& area) const override;
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    /// Into lines and arcs.
    Acad::ErrorStatus explode(AcDbVoidPtrArray& entities) const override;

protected:
    AcDbPathCurve() = default;
    AcDbPathCurve(const AcDbPathCurve&) = default;
    /// The vertices that the curve runs through; those that only shape a spline are left out.
    virtual VertexPath path() const = 0;

private:
    friend class CurvePieces;
};
