#pragma once

#include <vector>

#include "dbcurve.h"
#include "gedblar.h"

/// A spline by control points and knots (NURBS), with the points it was fitted to when the drawing has them.
/// Its curve parameter is that of its knots. One that only has fit points is read as the lines that join them.
class AcDbSpline : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbSpline);
    AcDbSpline() = default;
    /// `knots` holds as many numbers as there are control points, plus the degree, plus one; `weights` one each when
    /// rational.
    AcDbSpline(int degree, Adesk::Boolean rational, Adesk::Boolean closed, Adesk::Boolean periodic,
               const AcGePoint3dArray& controlPoints, const AcGeDoubleArray& knots,
               const AcGeDoubleArray& weights = AcGeDoubleArray());
    AcRxObject* clone() const override { return new AcDbSpline(*this); }

    int degree() const { return m_degree; }
    Adesk::Boolean isRational() const { return !m_weights.empty(); }
    int numControlPoints() const { return static_cast<int>(m_controlPoints.size()); }
    Acad::ErrorStatus getControlPointAt(int index, AcGePoint3d& point) const;
    Acad::ErrorStatus setControlPointAt(int index, const AcGePoint3d& point);
    int numFitPoints() const { return static_cast<int>(m_fitPoints.size()); }
    Acad::ErrorStatus getFitPointAt(int index, AcGePoint3d& point) const;

    Adesk::Boolean isClosed() const override { return (m_flags & 1) != 0; }
    Adesk::Boolean isPeriodic() const override { return (m_flags & 2) != 0; }
    Adesk::Boolean isPlanar() const override { return (m_flags & 8) != 0; }
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
    /// Of points taken along the spline, densely enough for 1e-4 of its size.
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;

protected:
    AcDbSpline(const AcDbSpline&) = default;

private:
    friend struct DxfFieldsOfSplines;
    friend class CurvePieces;
    bool isNurbs() const;
    void domain(double& from, double& to) const;
    bool range(double& from, double& to) const;
    AcGePoint3d at(double t) const;
    AcGeVector3d derivative(double t) const;
    int panels() const;

    std::vector<AcGePoint3d> m_controlPoints, m_fitPoints;
    std::vector<double> m_knots, m_weights;
    AcGeVector3d m_normal{0.0, 0.0, 1.0}, m_startTangent, m_endTangent;
    double m_knotTolerance = 1e-7, m_controlTolerance = 1e-7, m_fitTolerance = 1e-10;
    Adesk::Int16 m_flags = 0, m_degree = 3;
};
