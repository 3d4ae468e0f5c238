#pragma once

#include "dbcurve.h"

/// An ellipse or a stretch of one: center + major axis · cos t + minor axis · sin t.
/// Its curve parameter is t, the eccentric angle; its start and end angles are those seen from the centre.
class AcDbEllipse : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbEllipse);
    AcDbEllipse() = default;
    /// @param radiusRatio length of the minor axis over that of the major one, above 0 and at most 1
    AcDbEllipse(const AcGePoint3d& center, const AcGeVector3d& unitNormal, const AcGeVector3d& majorAxis,
                double radiusRatio, double startAngle = 0.0, double endAngle = 6.283185307179586);
    AcRxObject* clone() const override { return new AcDbEllipse(*this); }

    AcGePoint3d center() const { return m_center; }
    Acad::ErrorStatus setCenter(const AcGePoint3d& center);
    AcGeVector3d majorAxis() const { return m_majorAxis; }
    AcGeVector3d minorAxis() const;
    AcGeVector3d normal() const { return m_normal; }
    double radiusRatio() const { return m_radiusRatio; }
    /// eInvalidInput unless above 0 and at most 1.
    Acad::ErrorStatus setRadiusRatio(double ratio);
    double startAngle() const;
    double endAngle() const;

    Adesk::Boolean isClosed() const override;
    Adesk::Boolean isPeriodic() const override { return Adesk::kTrue; }
    Acad::ErrorStatus getStartParam(double& param) const override;
    Acad::ErrorStatus getEndParam(double& param) const override;
    Acad::ErrorStatus setStartParam(double param);
    Acad::ErrorStatus setEndParam(double param);
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
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;

protected:
    AcDbEllipse(const AcDbEllipse&) = default;

private:
    friend struct DxfFieldsOfCurves;
    AcGePoint3d at(double t) const;
    AcGeVector3d derivative(double t) const;
    void params(double& from, double& to) const;

    AcGePoint3d m_center;
    AcGeVector3d m_majorAxis{1.0, 0.0, 0.0};
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
    double m_radiusRatio = 1.0;
    double m_startParam = 0.0, m_endParam = 6.283185307179586;
};
